#include "camjob/run/RunJson.h"

#include "camjob/check/FindingJson.h"

#include <array>

namespace camjob {

namespace {

/// Changes with every change that a reader of the document could stumble over.
constexpr const char* kSchema = "camjob-run/2";

/// By the value of RunStatus.
constexpr std::array kStatusWords = {"done", "refused", "cancelled", "failed", "declined", "fault"};

Json ToJson(const RunFault& fault) {
    return {
        {"file",    fault.file   },
        {"line",    fault.line   },
        {"column",  fault.column },
        {"message", fault.message},
    };
}

Json ToJson(const TakenSetting& setting) {
    return {
        {"key",     setting.key            },
        {"value",   setting.value.toUtf8() },
        {"since",   setting.since          },
        {"job",     setting.ofJob.toUtf8() },
        {"certain", setting.isCertain      },
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

Json ToJson(const RunNote& note) {
    const bool isWarning = note.note.severity == dstv::NcNote::Severity::kWarning;
    return {
        {"file",     note.file                     },
        {"line",     note.note.line                },
        {"severity", isWarning ? "warning" : "note"},
        {"text",     note.note.text.toUtf8()       },
    };
}

/// By Account.
constexpr std::array kAccountNames = {
    "made", "refused", "not_made", "set_aside", "noted", "not_for_machine"};
static_assert(kAccountNames.size() == plugin::kAccountCount);

Json ToJson(const plugin::AccountNumbers& accounts) {
    Json object = Json::object();
    for (std::size_t i = 0; i < kAccountNames.size(); ++i)
        object[kAccountNames[i]] = accounts.features[i];
    return object;
}

/// By SetAside.
constexpr std::array kReasonNames = {"", "marked", "inside_slot", "duplicate", "countersink"};

Json ToJson(const plugin::SetAsideFeature& setAside, const std::string& file) {
    const bool hasOther = setAside.other.tag != 0;
    return {
        {"feature", FeatureJson(setAside.feature)                                },
        {"reason",  kReasonNames[static_cast<std::size_t>(setAside.reason)]},
        {"other",   hasOther ? FeatureJson(setAside.other) : Json()              },
        {"file",    file                                                    },
        {"line",    setAside.feature.tag                                    },
    };
}

template <typename T>
Json ListIn(const std::string& file, const std::vector<T>& items) {
    Json array = Json::array();
    for (const T& item : items)
        array.push_back(ToJson(item, file));
    return array;
}

Json ToJson(const RunUnmadeFile& file) {
    return {
        {"file",     file.file            },
        {"mark",     file.mark.toUtf8()   },
        {"accounts", ToJson(file.accounts)},
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
        {"accounts",    ToJson(member.accounts)     },
        {"findings",    FindingsJson(result.findings, member.file)},
        {"setAside",    ListIn(member.file, result.setAside)},
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

/// By the value of plugin::PlanUnit.
constexpr std::array kUnitWords = {"bars", "mm", "price"};

Json PieceJson(const plugin::ProfilePlan& plan, const plugin::PieceOnBar& piece) {
    return {
        {"position", plugin::Millimetres(piece.position) },
        {"mark",     plan.parts[piece.part].mark.toUtf8()},
        {"member",   plan.parts[piece.part].member       },
        {"piece",    piece.number                        },
        {"length",   plugin::Millimetres(piece.length)   },
    };
}

/// Bars that are cut alike are one entry, with the pieces of its first bar.
Json EntriesJson(const plugin::ProfilePlan& plan) {
    Json entries = Json::array();
    plugin::BarWalk walk(plan);
    long bar = plan.firstBar;
    for (const cutting::PlannedBars& bars : plan.plan.bars) {
        Json pieces = Json::array();
        for (const plugin::PieceOnBar& piece : walk.Next(bars))
            pieces.push_back(PieceJson(plan, piece));
        for (cutting::Count other = 1; other < bars.bars; ++other)
            walk.Next(bars);
        entries.push_back({
            {"bar",    bar                             },
            {"count",  bars.bars                       },
            {"stock",  plan.stocks[bars.stock].length  },
            {"kerf",   plan.stocks[bars.stock].kerf    },
            {"remnant", plan.stocks[bars.stock].remnant ? Json(plan.stocks[bars.stock].name.toUtf8()) : Json()},
            {"offCut", plugin::Millimetres(bars.offCut)},
            {"kept",   IsKept(plan,                      bars)},
            {"pieces",        std::move(pieces)                                },
        });
        bar += static_cast<long>(bars.bars);
    }
    return entries;
}

Json ToJson(const RunPlan& run) {
    const plugin::ProfilePlan& plan = run.plan;
    const plugin::PlanTotals totals = TotalsOf(plan);
    const double metres = totals.barLength / 1000.0;
    return {
        {"group",                    plan.group                                                             },
        {"name",                     run.group.toUtf8()                                                     },
        {"profile",                  plan.profileName.toUtf8()                                              },
        {"material",                 plan.material.toUtf8()                                                 },
        {"plan",                     plan.kind == job::BarPlan::kLeast ? "least" : "given"                  },
        {"bars",                     totals.bars                                                            },
        {"pieces",                   totals.pieces                                                          },
        {"uncut",                    totals.uncut                                                           },
        {"barLength",                totals.barLength                                                       },
        {"pieceLength",              totals.pieceLength                                                     },
        {"utilisation",              totals.GetUtilisation()                                                },
        {"kerfLoss",                 totals.kerfLoss                                                        },
        {"kept",                     totals.kept                                                            },
        {"scrapped",                 totals.scrapped                                                        },
        {"weight",                   plan.weightPerMetre > 0.0 ? Json(plan.weightPerMetre * metres) : Json()},
        {"unit",                     kUnitWords[static_cast<std::size_t>(plan.unit)]                        },
        {"cost",                     CostNumber(plan,                                                         plan.plan.cost)},
        {"lowerBound",                          CostNumber(plan,                                                                                      plan.plan.bound)},
        {"provedLeast",          plan.plan.IsProvedLeast()},
        {"firstFit",CostNumber(plan,                                                                    plan.firstFit)},
        {"given",                    CostNumber(plan,          plan.given)},
        {"entries",                    EntriesJson(plan)                                                        },
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
        {"settings",              ListOf(report.settings)                              },
        {"input",                 ToJson(report.input)                                 },
        {"notes",                 ListOf(report.notes)                                 },
        {"unmadeFiles",           ListOf(report.unmadeFiles)                           },
        {"members",               ListOf(report.members)                               },
        {"accounts",              ToJson(report.SumAccounts())                         },
        {"groups",                ListOf(report.groups)                                },
        {"bars",                  ListOf(report.plans)                                 },
        {"files",                 ListOf(report.files)                                 },
    };
    constexpr int kIndentWidth = 1;
    out.Write(Dump(document, kIndentWidth) + "\n");
}

}  // namespace camjob
