#include "camjob/compare/OutputFile.h"

#include "camjob/console/Paths.h"
#include "job/Job.h"

#include "camdata/platform/text/ZetString.h"

#include <filesystem>
#include <vector>

namespace camjob {

namespace {

namespace fs = std::filesystem;

std::vector<std::string> DocumentsIn(const std::string& folder) {
    const std::string ending = ZetString(job::kRunDocumentEnding).toUtf8();
    std::vector<std::string> names;
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(PathFromUtf8(folder), ignored)) {
        const std::string name = Utf8FromPath(entry.path().filename());
        if (name.size() > ending.size() && name.ends_with(ending))
            names.push_back(NameIn(folder, name));
    }
    return names;
}

/// The document of an output: of a folder the only one in it.
std::variant<std::string, NoOutput> FindRunDocument(const std::string& name) {
    std::error_code ignored;
    if (!fs::is_directory(PathFromUtf8(name), ignored))
        return name;
    const std::vector<std::string> documents = DocumentsIn(name);
    if (documents.size() == 1)
        return documents.front();
    const std::string ending = ZetString(job::kRunDocumentEnding).toUtf8();
    return NoOutput{name + ": " +
                    (documents.empty() ? "no output of a run: no file in it ends in " + ending
                                       : "several outputs: name the file that ends in " + ending)};
}

}  // namespace

std::variant<RunDocument, NoOutput> ReadOutput(const std::string& name,
                                               const TakeMember& take,
                                               const KnowsMember& knows) {
    auto file = FindRunDocument(name);
    if (auto* none = std::get_if<NoOutput>(&file))
        return std::move(*none);
    const std::string& document = std::get<std::string>(file);
    auto read = ReadRunDocument(PathFromUtf8(document), take, knows);
    if (const auto* fault = std::get_if<RunDocumentFault>(&read))
        return NoOutput{document + ": " + fault->reason};
    return std::get<RunDocument>(std::move(read));
}

std::variant<Comparison, NoOutput> ChangesSince(const std::string& older,
                                                const NewerOutput& newer) {
    OutputComparison comparison(newer.lookUp);
    const auto take = [&](const OutputMember& member) { comparison.TakeOld(member); };
    const auto isSame = [&](std::string_view line) {
        const std::optional<std::string> mark = newer.markOfLine(line);
        if (mark)
            comparison.TakeUnchanged(*mark);
        return mark.has_value();
    };
    auto read = ReadOutput(older, take, newer.markOfLine ? KnowsMember(isSame) : nullptr);
    if (auto* none = std::get_if<NoOutput>(&read))
        return std::move(*none);
    auto& document = std::get<RunDocument>(read);
    Comparison found = {comparison.Finish(newer.marks, document.bars, newer.bars),
                        std::move(document.changes)};
    found.changes.against = older;
    return found;
}

}  // namespace camjob
