#include "camjob/run/NcFiles.h"

#include "camjob/console/Paths.h"
#include "dstv/NcWriter.h"
#include "job/FileNames.h"
#include "job/NcNames.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

namespace camjob {

namespace {

/// Not what was refused, or set aside for another feature.
bool IsKept(const plugin::Ledger& ledger, long line) {
    const std::optional<plugin::Account> account = ledger.AccountOf(line, true);
    return account != plugin::Account::kRefused && account != plugin::Account::kSetAside;
}

/// The slashes of a mark that is a path would part folders.
ZetString MarkFor(const dstv::NcHeader& header, const job::NcInput& nc) {
    std::wstring mark(header.mark.view());
    if (nc.mark == job::MarkSource::kPath)
        std::replace(mark.begin(), mark.end(), L'/', L'-');
    return ZetString(std::move(mark));
}

job::NcNameValues ValuesOf(const dstv::NcPart& part, const job::Job& job, const job::Group& group) {
    const dstv::NcHeader& header = part.header;
    return {MarkFor(header, job.nc),
            ZetString::fromUtf8(Utf8FromPath(PathFromUtf8(part.file.toUtf8()).stem())),
            header.profileName,
            header.drawing,
            header.phase,
            header.order,
            group.id};
}

}  // namespace

std::vector<NcFiles::Draft> NcFiles::Make(const job::Job& job,
                                          const dstv::NcPart& part,
                                          const plugin::Ledger& ledger,
                                          std::size_t group) {
    std::vector<Draft> drafts;
    for (const std::size_t file : job.groups[group].files) {
        const job::OutputFile& output = job.files[file];
        if (!output.nc)
            continue;
        const char* const lineEnd = output.lineEnds == job::LineEnds::kCrLf ? "\r\n" : "\n";
        drafts.push_back(
            {&output,
             job::FillNcName(output.nc->names, ValuesOf(part, job, job.groups[group])),
             dstv::WriteNc(part, {job::NameOf(job.nc.encoding), lineEnd, [&](long line) {
                                      return IsKept(ledger, line);
                                  }})});
    }
    return drafts;
}

std::vector<std::string> NcFiles::Add(std::vector<Draft> drafts, const std::string& source) {
    std::vector<std::string> faults;
    for (Draft& draft : drafts) {
        std::string fault = AddFile(std::move(draft), source);
        if (!fault.empty())
            faults.push_back(std::move(fault));
    }
    ++m_members;
    return faults;
}

std::string NcFiles::AddFile(Draft draft, const std::string& source) {
    const job::OutputFile& output = *draft.output;
    const std::string path = output.nc->folder + "/" + draft.name.toUtf8();
    if (const std::string fault = FaultOfName(draft.name, path, source); !fault.empty())
        return "NC file \"" + path + "\": " + fault + "; change \"names\" of [[file]] \"" +
               output.id.toUtf8() + "\", or the part's own name";
    if (const auto* text = std::get_if<ZetString>(&draft.content))
        return "NC file \"" + path + "\": the encoding " + job::NameOf(m_job.nc.encoding) +
               " has not all characters of \"" + text->toUtf8() + "\"";
    m_files.push_back({m_members, path, std::get<std::string>(std::move(draft.content))});
    return "";
}

/// Names that differ in capitals only are one file on Windows.
std::string NcFiles::FaultOfName(const ZetString& name,
                                 const std::string& path,
                                 const std::string& source) {
    if (const std::string fault = job::FaultOfFileName(name); !fault.empty())
        return fault;
    const auto [at, isNew] =
        m_sourceOfSmall.insert({job::SmallLetters(ZetString::fromUtf8(path)), source});
    return isNew ? "" : "it is that of the part in \"" + at->second + "\" (capitals do not count)";
}

std::vector<std::string> NcFiles::GetNames() const {
    std::vector<std::string> names;
    for (const File& file : m_files)
        names.push_back(file.name);
    return names;
}

bool NcFiles::Write(const std::vector<RunMember>& members,
                    const std::filesystem::path& folder,
                    std::vector<RunFile>& files) const {
    for (const File& file : m_files) {
        if (!members[file.member].result.IsMade())
            continue;
        const std::filesystem::path path = folder / PathFromUtf8(file.name);
        std::error_code ignored;
        std::filesystem::create_directories(path.parent_path(), ignored);
        std::ofstream stream(path, std::ios::binary);
        stream.write(file.bytes.data(), static_cast<std::streamsize>(file.bytes.size()));
        stream.close();
        files.push_back({file.name, file.bytes.size()});
        if (stream.fail())
            return false;
    }
    return true;
}

}  // namespace camjob
