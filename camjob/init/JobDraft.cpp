#include "camjob/init/JobDraft.h"

#include "camjob/console/Paths.h"
#include "job/SystemError.h"

#include <algorithm>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace camjob {

namespace {

namespace fs = std::filesystem;

/// So many files of a folder are worth a pattern.
constexpr std::size_t kFewestForPattern = 3;

constexpr std::size_t kMarkSources = std::tuple_size_v<decltype(PartSurvey::marks)>;

std::string Slashed(const fs::path& path) {
    return Utf8FromPath(path.generic_u8string());
}

// ---- marks --------------------------------------------------------------------------------------

/// By part, the earlier one whose mark from that source it has; the part itself when it has a mark
/// of its own. A part without a mark has that of the first one without.
std::vector<std::size_t> FirstWithMark(const std::vector<PartSurvey>& parts, std::size_t source) {
    std::unordered_map<std::string, std::size_t> byMark;
    std::vector<std::size_t> firsts;
    for (std::size_t i = 0; i < parts.size(); ++i)
        firsts.push_back(byMark.insert({parts[i].marks[source], i}).first->second);
    return firsts;
}

bool HasOwnMark(const std::vector<PartSurvey>& parts,
                const std::vector<std::size_t>& firsts,
                std::size_t part,
                std::size_t source) {
    return firsts[part] == part && !parts[part].marks[source].empty();
}

std::size_t CountWithoutOwnMark(const std::vector<PartSurvey>& parts, std::size_t source) {
    const std::vector<std::size_t> firsts = FirstWithMark(parts, source);
    std::size_t count = 0;
    for (std::size_t i = 0; i < parts.size(); ++i)
        count += HasOwnMark(parts, firsts, i, source) ? 0 : 1;
    return count;
}

/// Parts that no source tells apart cannot be in one job: those behind the first are left out.
std::size_t ChooseMark(NcSurvey& survey) {
    std::size_t best = 0;
    for (std::size_t source = 1; source < kMarkSources; ++source)
        if (CountWithoutOwnMark(survey.parts, source) < CountWithoutOwnMark(survey.parts, best))
            best = source;
    const std::vector<std::size_t> firsts = FirstWithMark(survey.parts, best);
    std::vector<PartSurvey> kept;
    for (std::size_t i = 0; i < survey.parts.size(); ++i) {
        PartSurvey& part = survey.parts[i];
        if (HasOwnMark(survey.parts, firsts, i, best))
            kept.push_back(part);
        else
            survey.refused.push_back({Slashed(part.file),
                                      Slashed(part.file) + ": nothing tells it from " +
                                          Slashed(survey.parts[firsts[i]].file)});
    }
    survey.parts = std::move(kept);
    return best;
}

// ---- names of files -----------------------------------------------------------------------------

/// The file as a job in `folder` names it. On another drive: from its root.
fs::path SeenFrom(const fs::path& folder, const fs::path& file) {
    const fs::path whole = PlaceOf(file);
    const fs::path relative = whole.lexically_relative(RealPath(fs::absolute(folder)));
    return relative.empty() ? whole : relative;
}

/// Those of a folder with one ending, in the folder itself.
std::size_t CountFiles(const fs::path& folder, const fs::path& ending, std::error_code& error) {
    std::size_t count = 0;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error))
        count += at->path().extension() == ending ? 1 : 0;
    return count;
}

/// A pattern for all files of a folder with one ending, where the job takes them all; else each.
std::vector<std::string> NameFiles(const std::vector<PartSurvey>& parts,
                                   const fs::path& folder,
                                   std::string& listingFault) {
    std::map<std::pair<fs::path, fs::path>, std::vector<fs::path>> groups;
    for (const PartSurvey& part : parts)
        groups[{PlaceOf(part.file).parent_path(), part.file.extension()}].push_back(part.file);
    std::vector<std::string> names;
    for (const auto& [key, files] : groups) {
        const auto& [parent, ending] = key;
        std::error_code error;
        const bool isWhole = files.size() >= kFewestForPattern && !ending.empty() &&
                             CountFiles(parent, ending, error) == files.size();
        if (error)
            listingFault =
                Utf8FromPath(parent) + ": the folder cannot be listed" + job::ReasonBehind(error);
        if (isWhole)
            names.push_back(
                Slashed(SeenFrom(folder, files.front()).parent_path() / (fs::path("*") += ending)));
        for (const fs::path& file : files)
            if (!isWhole)
                names.push_back(Slashed(SeenFrom(folder, file)));
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

JobDraft DraftJob(NcSurvey survey, const fs::path& folder) {
    JobDraft draft;
    draft.name = Utf8FromPath(RealPath(fs::absolute(folder)).filename());
    draft.mark = static_cast<job::MarkSource>(ChooseMark(survey));
    draft.ncFiles = NameFiles(survey.parts, folder, draft.listingFault);
    draft.fileCount = static_cast<long>(survey.parts.size());
    draft.families = FindFamilies(survey.parts);
    for (const PartSurvey& part : survey.parts) {
        for (const HoleForm& hole : part.holes) {
            HoleSizes& sizes = draft.holes[hole.shape];
            sizes.diameters.insert(hole.diameter);
            sizes.lengths.insert(hole.length);
            ++sizes.holes;
        }
        for (const NotchForm& notch : part.notches)
            ++draft.notches[notch];
        draft.trims += part.trims;
        draft.mitres += part.mitres;
        draft.otherCuts += part.otherCuts;
        if (!part.foreignName.empty()) {
            draft.foreignName = part.foreignName;
            draft.otherReading = part.otherReading;
        }
    }
    draft.leftOut = std::move(survey.refused);
    return draft;
}

}  // namespace camjob
