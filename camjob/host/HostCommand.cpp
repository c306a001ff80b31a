#include "camjob/host/HostCommand.h"

#include "camjob/check/CheckInput.h"
#include "camjob/console/ExitCode.h"
#include "camjob/console/Paths.h"
#include "camjob/console/ReportText.h"
#include "camjob/console/ShownText.h"
#include "camjob/host/HostPrinting.h"
#include "camjob/host/HostedParts.h"
#include "camjob/host/PluginModule.h"
#include "camjob/input/NcFolderSearch.h"
#include "job/JobFile.h"
#include "job/SystemError.h"

#include "camdata/platform/host/ZetNCPlugin.h"

#include <exception>
#include <filesystem>
#include <optional>
#include <system_error>
#include <variant>

namespace camjob {

namespace {

namespace fs = std::filesystem;

using RunFunction = decltype(&RunNCPlugin);
constexpr const char* kRunFunction = "RunNCPlugin";

/// By eNCPluginResult.
struct Outcome {
    ExitCode code;
    const char* meaning;
};
constexpr Outcome kOutcomes[] = {
    {kExitDone,           "done"                                         },
    {kExitInvalidMembers, "done, but some members have errors"           },
    {kExitBadInput,       "given up"                                     },
    {kExitNotWritten,     "a file could not be opened, written or closed"},
};

class Host {
  public:
    Host(const HostOptions& options, OutputStream& out, OutputStream& err)
        : m_options(options), m_out(out), m_err(err) {}

    int Run();

  private:
    std::optional<std::vector<std::string>> FindFiles(const job::Job& job);
    int RunWith(const HostedParts& parts);
    int RunIn(const std::string& folder, RunFunction run, const HostedParts& parts);
    std::optional<int> Call(RunFunction run, const std::string& folder, const HostedParts& parts);
    int Tell(int result);
    std::string FolderName() const;
    int Refuse(const std::string& message, ExitCode code = kExitBadInput);

    const HostOptions& m_options;
    OutputStream& m_out;
    OutputStream& m_err;
};

int Host::Run() {
    const std::optional<job::Job> job = ReadRules(m_options.job, m_err);
    if (!job)
        return kExitBadInput;
    const auto files = FindFiles(*job);
    if (!files)
        return kExitBadInput;
    const HostedParts parts(*files, *job, m_err);
    return parts.AreWhole() ? RunWith(parts) : kExitBadInput;
}

std::optional<std::vector<std::string>> Host::FindFiles(const job::Job& job) {
    if (!m_options.files.empty()) {
        FoundNcFiles found = FindNcFiles(m_options.files);
        for (const dstv::NcError& fault : found.faults)
            Refuse(fault.describe().toUtf8());
        return found.faults.empty() ? std::optional(std::move(found.files)) : std::nullopt;
    }
    const job::NcFilesResult found = job::ExpandNcFiles(job);
    if (const auto* errors = std::get_if<std::vector<job::JobError>>(&found)) {
        for (const job::JobError& error : *errors)
            Refuse(job::DescribeJobError(error));
        return {};
    }
    std::vector<std::string> files;
    for (const job::NamedNcFile& file : std::get<std::vector<job::NamedNcFile>>(found))
        files.push_back(Utf8FromPath(PathFromUtf8(file.name)));
    return files;
}

int Host::RunWith(const HostedParts& parts) {
    const PluginModule module(PathFromUtf8(m_options.plugin));
    if (module.GetHandle() == nullptr)
        return Refuse(m_options.plugin + ": the plug-in cannot be loaded: " + module.GetFault());
    const auto run = reinterpret_cast<RunFunction>(FindFunction(module.GetHandle(), kRunFunction));
    if (run == nullptr)
        return Refuse(m_options.plugin + ": exports no function " + kRunFunction +
                      "; define it as camdata/platform/host/ZetNCPlugin.h declares it");
    return RunIn(FolderName(), run, parts);
}

int Host::RunIn(const std::string& folder, RunFunction run, const HostedParts& parts) {
    std::error_code error;
    fs::create_directories(PathFromUtf8(folder), error);
    if (!fs::is_directory(PathFromUtf8(folder)))
        return Refuse(folder + ": the folder cannot be made" +
                          (error ? job::ReasonBehind(error) : ": a file has its name"),
                      kExitNotWritten);
    WriteText(m_out,
              Count(static_cast<long>(parts.GetEntities().size()), L"part") + L" for " +
                  OneLine(ZetString::fromUtf8(m_options.plugin)) + L"\n\n" + parts.Describe() +
                  L"\n");
    // Before a fault of the plug-in can end the program.
    m_out.Flush();
    const std::optional<int> result = Call(run, folder, parts);
    if (!result)
        return kExitBadInput;
    const int code = Tell(*result);
    m_out.Write("Output in " + folder + "\n");
    return code;
}

/// Nothing when an exception came out of the plug-in, which is told.
std::optional<int> Host::Call(RunFunction run,
                              const std::string& folder,
                              const HostedParts& parts) {
    const HostPrinting printing(m_err);
    constexpr const char* kFault = ": a plug-in must not let exceptions out, this one did: ";
    try {
        return run(parts.GetEntities().data(),
                   static_cast<long>(parts.GetEntities().size()),
                   folder.c_str());
    } catch (const std::exception& exception) {
        Refuse(m_options.plugin + kFault + exception.what());
    } catch (...) {
        Refuse(m_options.plugin + kFault + "one of no known type");
    }
    return {};
}

int Host::Tell(int result) {
    const std::string number = std::to_string(result);
    if (result < 0 || result >= static_cast<int>(std::size(kOutcomes)))
        return Refuse(m_options.plugin + ": returned " + number +
                      ", which is no eNCPluginResult (0 to 3)");
    const Outcome& outcome = kOutcomes[result];
    m_out.Write("The plug-in returned " + number + ": " + outcome.meaning + "\n");
    return outcome.code;
}

/// "build/drill.so" writes to "drill-output" in the folder at hand.
std::string Host::FolderName() const {
    if (!m_options.folder.empty())
        return m_options.folder;
    return Utf8FromPath(PathFromUtf8(m_options.plugin).stem()) + "-output";
}

int Host::Refuse(const std::string& message, ExitCode code) {
    WriteLine(m_err, ZetString::fromUtf8("camjob: " + message));
    return code;
}

}  // namespace

int RunHost(const HostOptions& options, OutputStream& out, OutputStream& err) {
    return Host(options, out, err).Run();
}

}  // namespace camjob
