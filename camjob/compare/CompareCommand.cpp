#include "camjob/compare/CompareCommand.h"

#include "camjob/compare/ChangesJson.h"
#include "camjob/compare/ChangesText.h"
#include "camjob/compare/OutputFile.h"
#include "camjob/console/ExitCode.h"
#include "camjob/console/ShownText.h"

#include <limits>
#include <unordered_map>
#include <utility>

namespace camjob {

namespace {

constexpr const char* kSchema = "camjob-compare/1";

int Refuse(const NoOutput& none, OutputStream& err) {
    WriteLine(err, L"camjob: " + ZetString::fromUtf8(none.message));
    return kExitBadInput;
}

}  // namespace

int RunCompare(const CompareOptions& options, OutputStream& out, OutputStream& err) {
    NewerOutput newer;
    std::unordered_map<std::string, OutputMember> members;
    auto read = ReadOutput(options.newer, [&](const OutputMember& member) {
        newer.marks.push_back(member.mark);
        members.insert({member.mark, member});
    });
    if (const auto* none = std::get_if<NoOutput>(&read))
        return Refuse(*none, err);
    newer.bars = std::get<RunDocument>(std::move(read)).bars;
    newer.lookUp = [&](const std::string& mark) -> std::optional<OutputMember> {
        const auto at = members.find(mark);
        return at == members.end() ? std::nullopt : std::optional(at->second);
    };
    const auto compared = ChangesSince(options.older, newer);
    if (const auto* none = std::get_if<NoOutput>(&compared))
        return Refuse(*none, err);
    const OutputChanges& found = std::get<Comparison>(compared).changes;
    if (options.asJson) {
        Json document = {
            {"schema", kSchema      },
            {"newer",  options.newer}
        };
        document.update(ChangesJson(found, options.older));
        out.Write(Dump(document, 1) + "\n");
    } else {
        WriteText(out, ChangesText(found, std::numeric_limits<long>::max(), out.GetTerminal()));
    }
    return kExitDone;
}

}  // namespace camjob
