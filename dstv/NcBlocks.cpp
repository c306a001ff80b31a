#include "dstv/NcBlocks.h"

#include <algorithm>
#include <array>

namespace dstv {
namespace {

struct Row {
    std::string_view code;
    NcBlockType type;
    char onPlane;  ///< first letter of the same block on a plane; blank: there is none
};

constexpr std::array<Row, 14> kRows = {
    {
     {"ST", NcBlockType::kStart, ' '},
     {"EN", NcBlockType::kEnd, ' '},
     {"BO", NcBlockType::kHoles, 'B'},
     {"SI", NcBlockType::kNumerations, 'S'},
     {"AK", NcBlockType::kOuter, 'A'},
     {"IK", NcBlockType::kInner, 'I'},
     {"PU", NcBlockType::kPowder, 'P'},
     {"KO", NcBlockType::kPunch, 'K'},
     {"KA", NcBlockType::kBends, ' '},
     {"SC", NcBlockType::kSawCuts, ' '},
     {"PR", NcBlockType::kSection, ' '},
     {"TO", NcBlockType::kTolerance, ' '},
     {"UE", NcBlockType::kCamber, ' '},
     {"IN", NcBlockType::kInformation, ' '},
     }
};

bool IsCapital(char c) {
    return c >= 'A' && c <= 'Z';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

char Capital(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

NcBlockType TypeOf(std::string_view code) {
    if (IsDigit(code[1]) && code[0] == 'E')
        return NcBlockType::kPlane;
    const auto* row = std::find_if(kRows.begin(), kRows.end(), [&](const Row& candidate) {
        return candidate.code == code || (IsDigit(code[1]) && candidate.onPlane == code[0]);
    });
    return row == kRows.end() ? NcBlockType::kUnknown : row->type;
}

}  // namespace

NcBlockCode BlockCodeOf(std::string_view line) {
    const std::size_t last = line.find_last_not_of(" \t");
    if (last != 1)
        return {};
    NcBlockCode code;
    code.text = {Capital(line[0]), Capital(line[1])};
    code.isInCapitals = code.text == line.substr(0, 2);
    if (!IsCapital(code.text[0]) || (!IsCapital(code.text[1]) && !IsDigit(code.text[1])))
        return {};
    code.type = TypeOf(code.text);
    code.plane = IsDigit(code.text[1]) ? code.text[1] - '0' : -1;
    if (code.type == NcBlockType::kUnknown && !code.isInCapitals)
        return {};
    return code;
}

bool IsKnownBlock(std::string_view line) {
    return BlockCodeOf(line).type != NcBlockType::kUnknown;
}

}  // namespace dstv
