#include "camjob/init/InitCommand.h"

#include "camjob/console/ExitCode.h"
#include "camjob/console/Paths.h"
#include "camjob/console/ShownText.h"
#include "camjob/disk/RevocableFiles.h"
#include "camjob/disk/StagingDisk.h"
#include "camjob/init/JobDraftText.h"
#include "camjob/init/NcSurvey.h"
#include "camjob/input/NcFolderSearch.h"
#include "job/MessageTexts.h"
#include "job/SystemError.h"
#include "job/templates/InitTemplates.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <system_error>

namespace camjob {

namespace {

namespace fs = std::filesystem;

struct KindRow {
    const char* name;
    std::vector<job::SampleKind> samples;
};
constexpr const char* kWithEveryKey = "purlins";

const KindRow kKinds[] = {
    {kWithEveryKey, {job::SampleKind::kPurlins}                                                    },
    {"plates",      {job::SampleKind::kPlates}                                                     },
    {"frames",      {job::SampleKind::kFrames, job::SampleKind::kPlates}                           },
    {"mixed",       {job::SampleKind::kPurlins, job::SampleKind::kFrames, job::SampleKind::kPlates}},
};

const KindRow* FindKind(const std::string& kind) {
    return std::find_if(
        std::begin(kKinds), std::end(kKinds), [&](const KindRow& row) { return row.name == kind; });
}

std::vector<job::TemplateFile> SamplesOf(const std::string& kind) {
    const KindRow* row = FindKind(kind);
    std::vector<job::TemplateFile> files;
    for (const job::SampleFile& sample : job::kSampleFiles)
        if (std::find(row->samples.begin(), row->samples.end(), sample.kind) != row->samples.end())
            files.push_back(sample.file);
    return files;
}

/// Folders and files can name the same file.
std::vector<std::string> EachOnce(const std::vector<std::string>& files) {
    std::set<fs::path> places;
    std::vector<std::string> once;
    for (const std::string& file : files)
        if (places.insert(PlaceOf(PathFromUtf8(file))).second)
            once.push_back(file);
    return once;
}

/// One call of the command. A step that finds it at its end says so and returns an exit code other
/// than kExitDone.
class InitRun {
  public:
    InitRun(const InitOptions& options, OutputStream& out, OutputStream& err)
        : m_options(options), m_folder(PathFromUtf8(options.folder)), m_out(out), m_err(err) {
        if (options.from.empty())
            m_samples = SamplesOf(options.kind);
    }

    int Run() {
        if (const int code = CheckPlaces(); code != kExitDone)
            return code;
        for (const job::TemplateFile& sample : m_samples)
            if (!IsWritten(sample) && !Write(sample.name, sample.text))
                return kExitNotWritten;
        const bool isTemplate = m_options.from.empty() && m_options.kind == kWithEveryKey;
        const int code = isTemplate ? WriteJob(job::kJobTemplate.text) : WriteDraftedJob();
        if (code == kExitDone)
            Tell();
        return code;
    }

  private:
    std::string NameOf(const char* file) const {
        return Utf8FromPath(m_folder / PathFromUtf8(file));
    }

    int CheckPlaces() {
        std::string fault = FaultOfPlace(job::kJobTemplate.name);
        for (const job::TemplateFile& sample : m_samples)
            if (fault.empty() && !IsWritten(sample))
                fault = FaultOfPlace(sample.name);
        return fault.empty() ? kExitDone : Refuse(fault + ": nothing was written");
    }

    /// Why no file can be made there; "" when one can.
    std::string FaultOfPlace(const char* name) const {
        std::error_code error;
        const fs::file_status status = fs::symlink_status(m_folder / PathFromUtf8(name), error);
        if (status.type() == fs::file_type::not_found)
            return "";
        if (fs::status_known(status))
            return NameOf(name) + " is there already";
        return NameOf(name) + ": the system does not tell whether this is there" +
               job::ReasonBehind(error);
    }

    /// By a call that was cut off before it wrote the job file, its last one.
    bool IsWritten(const job::TemplateFile& sample) const {
        std::string bytes;
        return !StagingDisk().ReadFile(m_folder / PathFromUtf8(sample.name), bytes) &&
               bytes == sample.text;
    }

    int Refuse(const std::string& text) {
        WriteLine(m_err, ZetString::fromUtf8("camjob: " + text));
        return kExitBadInput;
    }

    bool Write(const char* name, std::string_view text) {
        const std::error_code error = m_files.Write(m_folder / PathFromUtf8(name), text);
        if (error)
            m_err.Write("camjob: " + NameOf(name) + " could not be written" +
                        job::ReasonBehind(error) + ": nothing was left behind\n");
        return !error;
    }

    int WriteJob(std::string_view text) {
        if (!Write(job::kJobTemplate.name, text))
            return kExitNotWritten;
        m_files.Keep();
        return kExitDone;
    }

    int WriteDraftedJob() {
        auto [files, folders, faults] = FindNcFiles(m_options.from);
        for (const dstv::NcError& fault : faults)
            Refuse(fault.describe().toUtf8());
        if (!faults.empty())
            return Refuse("nothing was written");
        for (const job::TemplateFile& sample : m_samples)
            files.push_back(NameOf(sample.name));
        const JobDraft draft = DraftJob(SurveyNcFiles(EachOnce(files)), m_folder);
        for (const RefusedFile& file : draft.leftOut)
            WriteLine(m_err, ZetString::fromUtf8(file.reason));
        if (!draft.listingFault.empty())
            return Refuse(draft.listingFault + ": nothing was written");
        m_fileCount = draft.fileCount;
        m_leftOut = draft.leftOut.size();
        if (draft.fileCount == 0)
            return Refuse("none of these files can be in a job: nothing was written");
        return WriteJob(WriteJobText(draft));
    }

    void Tell() {
        for (const job::TemplateFile& sample : m_samples)
            m_out.Write(NameOf(sample.name) + "\n");
        m_out.Write(NameOf(job::kJobTemplate.name) + "\n");
        if (!m_options.from.empty())
            m_out.Write(std::to_string(m_fileCount) + " NC files are in the job, " +
                        std::to_string(m_leftOut) + " are not\n");
        m_out.Write("Next: camjob run " + NameOf(job::kJobTemplate.name) + "\n");
    }

    const InitOptions& m_options;
    const fs::path m_folder;
    OutputStream& m_out;
    OutputStream& m_err;
    std::vector<job::TemplateFile> m_samples;
    RevocableFiles m_files;
    long m_fileCount = 0;
    std::size_t m_leftOut = 0;
};

}  // namespace

std::string FaultOfInitKind(const std::string& kind) {
    if (FindKind(kind) != std::end(kKinds))
        return "";
    std::vector<std::string> names;
    for (const KindRow& row : kKinds)
        names.emplace_back(row.name);
    return "expected purlins, plates, frames or mixed, found " + job::Quoted(kind) +
           job::Suggest(kind, names);
}

int RunInit(const InitOptions& options, OutputStream& out, OutputStream& err) {
    return InitRun(options, out, err).Run();
}

}  // namespace camjob
