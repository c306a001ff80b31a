#include "dstv/NcEncoding.h"

#include "codepages/CodePages.h"
#include "dstv/NcText.h"
#include "dstv/NcTokens.h"

#include <algorithm>

namespace dstv {
namespace {

constexpr std::string_view kUtf8 = "utf-8";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// All of them are in the basic plane.
void AppendUtf8(char16_t character, std::string& text) {
    const auto add = [&text](unsigned byte) { text += static_cast<char>(byte); };
    if (character < 0x800u) {
        add(0xC0u | static_cast<unsigned>(character) >> 6);
    } else {
        add(0xE0u | static_cast<unsigned>(character) >> 12);
        add(0x80u | (static_cast<unsigned>(character) >> 6 & 0x3Fu));
    }
    add(0x80u | (static_cast<unsigned>(character) & 0x3Fu));
}

/// The text of the line that byte `at` stands in.
[[noreturn]] void FailInLine(std::string_view bytes, std::size_t at, std::string_view encoding) {
    const std::string_view before = bytes.substr(0, at);
    const std::size_t begin = before.find_last_of("\r\n") + 1;
    const auto ends = std::count(before.begin(), before.end(), '\n');
    const std::string_view line = bytes.substr(begin, bytes.find_first_of("\r\n", at) - begin);
    throw NcFailure(
        NcError{{},
                static_cast<long>(ends) + 1,
                0,
                L"text",
                Quotable(Trimmed(line)),
                L"text in " + ZetString::fromUtf8(encoding) + L", which has no such byte",
                true});
}

std::string Decode(std::string_view bytes, const codepages::CodePage& page) {
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte < codepages::kFirstForeignByte) {
            text += bytes[i];
            continue;
        }
        const char16_t character = page.fromByte80[byte - codepages::kFirstForeignByte];
        if (character == codepages::kNoCharacter)
            FailInLine(bytes, i, page.name);
        AppendUtf8(character, text);
    }
    return text;
}

/// The first line that is not UTF-8.
void CheckUtf8(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = std::min(bytes.find('\n', at), bytes.size());
        if (!IsUtf8(bytes.substr(at, end - at)))
            FailInLine(bytes, at, kUtf8);
        at = end + 1;
    }
}

}  // namespace

std::string_view InUtf8(std::string_view bytes, std::string_view encoding, std::string& decoded) {
    if (encoding == kUtf8)
        CheckUtf8(bytes);
    if (encoding == kUtf8 || encoding == kAutomaticEncoding || bytes.starts_with(kByteOrderMark))
        return bytes;
    const codepages::CodePage* page = codepages::FindCodePage(encoding);
    if (page == nullptr)
        FailAt({}, L"encoding", encoding, L"the name of an encoding");
    decoded = Decode(bytes, *page);
    return decoded;
}

}  // namespace dstv
