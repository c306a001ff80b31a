#include "camjob/run/RunJson.h"

#include "camjob/console/ReportJson.h"

#include <array>

namespace camjob {

namespace {

/// Changes with every change that a reader of the document could stumble over.
constexpr const char* kSchema = "camjob-run/1";

/// By the value of RunStatus.
constexpr std::array kStatusWords = {"done", "refused", "cancelled", "failed", "declined"};

Json ToJson(const RunFault& fault) {
    return {
        {"file",    fault.file   },
        {"line",    fault.line   },
        {"column",  fault.column },
        {"message", fault.message},
    };
}

Json ToJson(const RunInput& input) {
    return {
        {"filesRead", input.filesRead},
        {"skipped",   input.skipped  },
        {"notes",     input.notes    },
        {"warnings",  input.warnings },
    };
}

Json ToJson(const RunMember& member) {
    const plugin::MemberResult& result = member.result;
    return {
        {"file",        member.file                 },
        {"mark",        result.mark.toUtf8()        },
        {"profileName", result.profileName.toUtf8() },
        {"group",       result.group                },
        {"quantity",    result.quantity             },
        {"valid",       result.outcome.isValid      },
        {"warnings",    result.outcome.hasWarnings  },
        {"nonStandard", result.outcome.isNonStandard},
        {"left",        result.left                 },
    };
}

Json ToJson(const RunGroup& group) {
    return {
        {"group",        group.result.group       },
        {"name",         group.name.toUtf8()      },
        {"members",      group.result.members     },
        {"pieces",       group.result.pieces      },
        {"invalid",      group.result.invalid     },
        {"withWarnings", group.result.withWarnings},
        {"nonStandard",  group.result.nonStandard },
    };
}

Json ToJson(const RunNest& nest) {
    return {
        {"group",       nest.result.group      },
        {"name",        nest.name.toUtf8()     },
        {"pieceLength", nest.result.pieceLength},
        {"bars",        nest.result.bars       },
        {"utilisation", nest.result.utilisation},
        {"lowerBound",  nest.result.lowerBound },
        {"firstFit",    nest.result.firstFit   },
    };
}

Json ToJson(const RunFile& file) {
    return {
        {"name",  file.name },
        {"bytes", file.bytes},
    };
}

constexpr ListMaker ListOf = {[](const auto& item) { return ToJson(item); }};

}  // namespace

void WriteRunJson(const RunReport& report, OutputStream& out) {
    const Json document = {
        {"schema",                kSchema                                              },
        {"status",                kStatusWords[static_cast<std::size_t>(report.status)]},
        {"exitCode",              report.GetExitCode()                                 },
        {"job",                   report.job                                           },
        {"name",                  report.name.toUtf8()                                 },
        {"folder",                report.folder                                        },
        {"finishedEarlierOutput", report.hasFinishedEarlierOutput                      },
        {"faults",                ListOf(report.faults)                                },
        {"leftOut",               ListOf(report.leftOut)                               },
        {"input",                 ToJson(report.input)                                 },
        {"members",               ListOf(report.members)                               },
        {"groups",                ListOf(report.groups)                                },
        {"bars",                  ListOf(report.nests)                                 },
        {"files",                 ListOf(report.files)                                 },
    };
    constexpr int kIndentWidth = 1;
    out.Write(Dump(document, kIndentWidth) + "\n");
}

}  // namespace camjob
