#pragma once

#include "camjob/run/RunReport.h"
#include "dstv/NcPart.h"
#include "job/Job.h"
#include "plugin/ledger/Ledger.h"

#include <filesystem>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace camjob {

/// The NC files that a run writes: one for each member that is made, for each file of the job that
/// is a folder of them.
class NcFiles {
  public:
    /// The job must outlive it.
    explicit NcFiles(const job::Job& job) : m_job(job) {}

    /// What will be written of a member.
    struct Draft {
        const job::OutputFile* output;
        ZetString name;
        std::variant<std::string, ZetString> content;  ///< or the text that has no such encoding
    };
    /// Of a member in a group, by its position; what its ledger says is not made is left out.
    static std::vector<Draft> Make(const job::Job& job,
                                   const dstv::NcPart& part,
                                   const plugin::Ledger& ledger,
                                   std::size_t group);
    /// Keeps what was made of the next member, whose NC file is `source`. Why there can be no such
    /// file, one sentence each.
    std::vector<std::string> Add(std::vector<Draft> drafts, const std::string& source);

    /// With their folder and a slash; of all members.
    std::vector<std::string> GetNames() const;
    /// Writes those of the members that are made. False when one cannot be written; it is then the
    /// last of `files`.
    bool Write(const std::vector<RunMember>& members,
               const std::filesystem::path& folder,
               std::vector<RunFile>& files) const;

  private:
    struct File {
        std::size_t member;
        std::string name;  ///< UTF-8, with folder
        std::string bytes;
    };

    std::string AddFile(Draft draft, const std::string& source);
    std::string FaultOfName(const ZetString& name,
                            const std::string& path,
                            const std::string& source);

    const job::Job& m_job;
    std::size_t m_members = 0;
    std::vector<File> m_files;
    /// What they are made from, by the small letters of their names with folder.
    std::map<std::wstring, std::string> m_sourceOfSmall;
};

}  // namespace camjob
