#include "camjob/check/CheckJson.h"

#include "camjob/check/FindingJson.h"

#include <array>

namespace camjob {

namespace {

/// Changes with every change that a reader of the document could stumble over.
constexpr const char* kSchema = "camjob-check/2";

Json OrNull(const std::optional<double>& value) {
    return value ? Json(*value) : Json();
}

Json OrNull(const ZetString& text) {
    return text.isEmpty() ? Json() : Json(text.toUtf8());
}

Json ToJson(const ZetNCHeaderData& header) {
    return {
        {"mark",        header.mark.toUtf8()                                     },
        {"drawing",     header.drawingNumber.toUtf8()                            },
        {"profileName", header.profileName.toUtf8()                              },
        {"profileCode", header.profileCode.toUtf8()                              },
        {"quantity",    header.quantity                                          },
        {"length",      header.length                                            },
        {"sawLength",   header.sawLength == 0.0 ? Json() : Json(header.sawLength)},
        {"height",      header.height                                            },
        {"width",       header.width                                             },
        {"thickness",   header.thickness                                         },
    };
}

Json ToJson(const dstv::NcNote& note) {
    const bool isWarning = note.severity == dstv::NcNote::Severity::kWarning;
    return {
        {"severity", isWarning ? "warning" : "note"},
        {"line",     note.line                     },
        {"text",     note.text.toUtf8()            },
    };
}

Json ToJson(const std::optional<RectangleReport>& rectangle) {
    if (!rectangle)
        return {};
    return {
        {"b",            rectangle->b           },
        {"h",            rectangle->h           },
        {"cornerRadius", rectangle->cornerRadius},
    };
}

Json ThreadOf(const HoleReport& hole) {
    if (hole.hasRightThread)
        return "right";
    return hole.hasLeftThread ? Json("left") : Json();
}

/// By the value of SetAside.
constexpr std::array<const char*, 5> kSetAsideNames = {
    nullptr, "marked", "insideSlot", "duplicate", "countersink"};

Json ToJson(SetAside setAside) {
    const char* name = kSetAsideNames[static_cast<std::size_t>(setAside)];
    return name == nullptr ? Json() : Json(name);
}

Json ToJson(const HoleReport& hole) {
    return {
        {"line",              hole.line             },
        {"face",              hole.face.toUtf8()    },
        {"viewPosition",      hole.viewPosition     },
        {"x",                 hole.x                },
        {"y",                 hole.y                },
        {"shape",             hole.shape.toUtf8()   },
        {"size",              hole.size             },
        {"length",            OrNull(hole.length)   },
        {"angle",             OrNull(hole.angle)    },
        {"depth",             OrNull(hole.depth)    },
        {"sinkAngle",         OrNull(hole.sinkAngle)},
        {"rectangle",         ToJson(hole.rectangle)},
        {"thread",            ThreadOf(hole)        },
        {"countersunk",       hole.isCountersunk    },
        {"setAside",          ToJson(hole.setAside) },
        {"requiredToProcess", !hole.isNotProcessed  },
        {"valid",             !hole.isInvalid       },
        {"nonStandard",       hole.isNonStandard    },
        {"code",              OrNull(hole.code)     },
        {"remarks",           TextList(hole.remarks)},
    };
}

Json ToJson(const NotchReport& notch) {
    return {
        {"face",      notch.face.toUtf8()                            },
        {"internal",  notch.isInternal                               },
        {"x",         notch.x                                        },
        {"y",         notch.y                                        },
        {"shape",     notch.shape.toUtf8()                           },
        {"length",    OrNull(notch.length)                           },
        {"width",     OrNull(notch.width)                            },
        {"turned",    notch.isTurned                                 },
        {"corners",   notch.corners                                  },
        {"status",    notch.status.toUtf8()                          },
        {"duplicate", notch.isDuplicate                              },
        {"holeLine",  notch.holeLine ? Json(*notch.holeLine) : Json()},
    };
}

Json ToJson(const CutReport& cut) {
    return {
        {"kind",  ZetString(cut.kind).toUtf8()},
        {"line",  cut.line                    },
        {"face",  cut.face.toUtf8()           },
        {"side",  ZetString(cut.side).toUtf8()},
        {"at",    cut.at                      },
        {"angle", OrNull(cut.angle)           },
        {"code",  OrNull(cut.code)            },
    };
}

Json ToJson(const std::optional<JudgementReport>& judgement) {
    if (!judgement)
        return {};
    return {
        {"memberType",   judgement->memberType.toUtf8()   },
        {"skipped",      judgement->isSkipped             },
        {"valid",        judgement->isValid               },
        {"errorBlock",   TextList(judgement->errorBlock)  },
        {"warningBlock", TextList(judgement->warningBlock)},
    };
}

Json ToJson(const FaceReport& face) {
    return {
        {"face",                  face.face.toUtf8()   },
        {"viewPosition",          face.viewPosition    },
        {"externalContourPoints", face.externalPoints  },
        {"internalContours",      face.internalContours},
        {"marks",                 face.marks           },
        {"numerations",           face.numerations     },
    };
}

Json ToJson(const dstv::NcError& error) {
    return {
        {"file",     error.file.toUtf8()      },
        {"line",     error.line               },
        {"column",   error.column             },
        {"what",     error.what.toUtf8()      },
        {"found",    error.found.toUtf8()     },
        {"expected", error.expected.toUtf8()  },
        {"message",  error.describe().toUtf8()},
    };
}

constexpr ListMaker ListOf = {[](const auto& item) { return ToJson(item); }};

Json ShapesOf(const CheckSummary& summary) {
    Json shapes = Json::object();
    for (const auto& [shape, count] : summary.holesByShape)
        shapes[shape.toUtf8()] = count;
    return shapes;
}

}  // namespace

void CheckJsonWriter::Begin() {
    if (m_isDocument)
        m_out.Write("{\"schema\":" + Dump(kSchema) + ",\n\"files\":[");
}

void CheckJsonWriter::Continue() {
    m_separator = kNextFile;
}

void CheckJsonWriter::AddRead(const CheckReport& report) {
    const std::string file = report.file.toUtf8();
    Json findings = FindingsJson(report.findings, file, report.headerPlaces);
    AddFile(Dump({
        {"file",      file                    },
        {"status",    "read"                  },
        {"header",    ToJson(report.header)   },
        {"notes",     ListOf(report.notes)    },
        {"holes",     ListOf(report.holes)    },
        {"notches",   ListOf(report.notches)  },
        {"cuts",      ListOf(report.cuts)     },
        {"findings",  std::move(findings)     },
        {"judgement", ToJson(report.judgement)},
        {"faces",     ListOf(report.faces)    },
    }));
}

void CheckJsonWriter::AddRefused(const dstv::NcError& error) {
    AddFile(Dump({
        {"file",    error.file.toUtf8()  },
        {"status",  "refused"            },
        {"error",   ToJson(error)        },
        {"further", ListOf(error.further)},
    }));
}

void CheckJsonWriter::End(const CheckSummary& summary) {
    const Json counts = {
        {"filesRead",      summary.filesRead     },
        {"filesRefused",   summary.filesRefused  },
        {"holes",          summary.holes         },
        {"holesByShape",   ShapesOf(summary)     },
        {"holesSetAside",  summary.holesSetAside },
        {"notches",        summary.notches       },
        {"invalidMembers", summary.invalidMembers},
        {"notes",          summary.notes         },
        {"warnings",       summary.warnings      },
    };
    if (m_isDocument)
        m_out.Write("\n],\n\"summary\":" + Dump(counts) + "}\n");
    else
        AddLine("{\"summary\":" + Dump(counts) + "}");
}

/// An object that is not empty, with the schema before its fields.
void CheckJsonWriter::AddLine(const std::string& object) {
    m_out.Write("{\"schema\":" + Dump(kSchema) + "," + object.substr(1) + "\n");
}

void CheckJsonWriter::AddFile(const std::string& file) {
    if (!m_isDocument)
        return AddLine(file);
    m_out.Write(m_separator + file);
    m_separator = kNextFile;
}

}  // namespace camjob
