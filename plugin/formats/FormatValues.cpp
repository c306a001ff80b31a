#include "plugin/formats/FormatValues.h"

#include "job/TextPattern.h"
#include "plugin/formats/MachineWords.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <utility>

namespace plugin {

namespace {

/// Sizes of tools agree within it, mm.
constexpr double kToolTolerance = 0.05;

/// Sides that run along the member.
constexpr int kFirstSideAcross = 2;

bool Agree(const std::optional<double>& wanted, double size) {
    return !wanted || std::abs(*wanted - size) <= kToolTolerance;
}

bool IsRound(const MachineOperation& operation) {
    return operation.kind == MachineOperationKind::kHole ||
           operation.kind == MachineOperationKind::kCountersunk;
}

double DiameterOf(const MachineOperation& operation) {
    return IsRound(operation) ? operation.diameter : operation.width;
}

/// As a tool's row would say it; the kind is told with the operation.
ZetString SizeOf(const MachineOperation& operation) {
    if (DiameterOf(operation) <= 0.0)
        return {};
    return IsRound(operation)
               ? ZetString::format(L", diameter %.2f", operation.diameter)
               : ZetString::format(
                     L", width %.2f and length %.2f", operation.width, operation.length);
}

FormatWord WordOf(Words words, int position) {
    return {words[static_cast<std::size_t>(position)], true};
}

}  // namespace

/// How each field is found: a row by FormatField.
struct FieldValues {
    using S = const FormatSubject&;
    using V = const FormatValues&;
    using Get = FormatValue (*)(V, S);

    template <auto Member>
    static FormatValue Run(V, S s) {
        return (s.texts->*Member).view();
    }
    template <auto Member>
    static FormatValue Count(V, S s) {
        return s.*Member;
    }
    template <auto Member>
    static FormatValue OfMember(V, S s) {
        return AsValue(s.member->*Member);
    }
    template <auto Member>
    static FormatValue OfOperation(V, S s) {
        return AsValue(s.operation->*Member);
    }
    template <auto Member, const auto& Table>
    static FormatValue Word(V, S s) {
        return WordOf(Table, static_cast<int>(s.operation->*Member));
    }
    static FormatValue Tab(V, S) { return FormatWord{L"\t"}; }
    static FormatValue Header(V, S s) { return FormatWord{s.header->view()}; }
    static FormatValue Group(V, S s) { return s.group->view(); }
    static FormatValue Date(V, S s) { return FormatWord{s.texts->date.view()}; }
    static FormatValue Section(V, S s) { return s.section->view(); }
    static FormatValue Profile(V v, S s) { return v.NameOfProfile(s.member->profile); }
    static FormatValue Operations(V, S s) { return static_cast<long>(s.member->operations.size()); }
    static FormatValue Face(V v, S s) { return v.NameOfFace(s.operation->face); }
    static FormatValue X(V v, S s) {
        return v.PlaceAlong(s.point != nullptr ? s.point->x : s.operation->x, s);
    }
    static FormatValue Y(V v, S s) {
        return v.PlaceAcross(s.point != nullptr ? s.point->y : s.operation->y, s);
    }
    static FormatValue Angle(V v, S s) { return v.AngleOf(*s.operation); }
    static FormatValue Tool(V v, S s) { return v.NameOfTool(*s.operation); }
    static FormatValue At(V v, S s) {
        return s.operation->side < kFirstSideAcross ? v.PlaceAlong(s.operation->at, s)
                                                    : v.PlaceAcross(s.operation->at, s);
    }
    static FormatValue Side(V v, S s) { return WordOf(kSideWords, v.SideOf(*s.operation)); }
    static FormatValue Pitch(V, S s) { return s.pitch; }
    static FormatValue None(V, S) { return NoValue{L"it is no single value"}; }

    static FormatValue AsValue(double value) { return value; }
    static FormatValue AsValue(long value) { return value; }
    static FormatValue AsValue(const ZetString& value) { return value.view(); }

    struct Row {
        job::FormatField field;
        Get get;
    };
    static const Row kRows[];
};

using enum job::FormatField;
using Operation = MachineOperation;
using Member = MachineMember;

const FieldValues::Row FieldValues::kRows[] = {
    {kTab,                    &Tab                                         },
    {kHeader,                 &Header                                      },
    {kFileName,               &Run<&FormatTexts::fileName>                 },
    {kJob,                    &Run<&FormatTexts::job>                      },
    {kProject,                &Run<&FormatTexts::project>                  },
    {kNumber,                 &Run<&FormatTexts::number>                   },
    {kClient,                 &Run<&FormatTexts::client>                   },
    {kRevision,               &Run<&FormatTexts::revision>                 },
    {kDate,                   &Date                                        },
    {kGroup,                  &Group                                       },
    {kSection,                &Section                                     },
    {kMembers,                &Count<&FormatSubject::members>              },
    {kPieces,                 &Count<&FormatSubject::pieces>               },
    {kLines,                  &Count<&FormatSubject::lines>                },
    {kMark,                   &OfMember<&Member::mark>                     },
    {kQuantity,               &OfMember<&Member::quantity>                 },
    {kProfile,                &Profile                                     },
    {kMaterial,               &OfMember<&Member::material>                 },
    {kMemberLength,           &OfMember<&Member::length>                   },
    {kMemberHeight,           &OfMember<&Member::height>                   },
    {kMemberWidth,            &OfMember<&Member::width>                    },
    {kThickness,              &OfMember<&Member::thickness>                },
    {kWeight,                 &OfMember<&Member::weight>                   },
    {kWeightPerMetre,         &OfMember<&Member::weightPerMetre>           },
    {kOperations,             &Operations                                  },
    {kIndex,                  &Count<&FormatSubject::index>                },
    {kKind,                   &Word<&Operation::kind,                        kOperationWords>},
    {kFace,                       &Face                                                               },
    {kCutFace,                       &Word<&Operation::cutFace,kCutFaceWords>},
    {kCut,         &Word<&Operation::cut,                                                         kCutWords>},
    {kX,&X},
    {kY,                      &Y                                                                       },
    {kDiameter,                      &OfOperation<&Operation::diameter>                                           },
    {kLength,               &OfOperation<&Operation::length>    },
    {kWidth,                 &OfOperation<&Operation::width>               },
    {kAngle,                  &Angle               },
    {kDepth,                  &OfOperation<&Operation::depth>                                       },
    {kSinkDiameter,                  &OfOperation<&Operation::sinkDiameter>              },
    {kSinkDepth,           &OfOperation<&Operation::sinkDepth>},
    {kSinkAngle,              &OfOperation<&Operation::sinkAngle>             },
    {kThread,              &Word<&Operation::thread,           kThreadWords>},
    {kTool,                 &Tool                        },
    {kSide,                       &Side                                                               },
    {kAt,                       &At                                       },
    {kEnd,                       &Word<&Operation::end,   kEndWords>},
    {kMarkKind,                       &Word<&Operation::mark,                          kMarkWords>},
    {kTextHeight,             &OfOperation<&Operation::height>                                                       },
    {kText,&OfOperation<&Operation::text>},
    {kPoints,             &None             },
    {kCount,                   &Count<&FormatSubject::count>                                                       },
    {kPitch,                 &Pitch                                            },
    {kCode,                  &OfOperation<&Operation::code>               },
};

FormatValues::FormatValues(const job::MachineFormat& format) : m_format(format) {
    static_assert(std::size(FieldValues::kRows) == static_cast<std::size_t>(kCode) + 1);
}

FormatValue FormatValues::ValueOf(job::FormatField field, const FormatSubject& subject) const {
    return FieldValues::kRows[static_cast<std::size_t>(field)].get(*this, subject);
}

// ---- names --------------------------------------------------------------------------------------

const job::FaceName* FormatValues::FaceOf(int face) const {
    const auto& rows = m_format.faces.rows;
    const auto at = std::find_if(
        rows.begin(), rows.end(), [&](const job::FaceName& row) { return row.face == face; });
    return at == rows.end() ? nullptr : &*at;
}

FormatValue FormatValues::NameOfFace(int face) const {
    const FormatWord own = WordOf(kFaceWords, face);
    if (m_format.faces.rows.empty())
        return own;
    if (const job::FaceName* row = FaceOf(face))
        return row->name ? FormatWord{row->name->view()} : own;
    if (m_format.faces.otherwise)
        return FormatWord{m_format.faces.otherwise->view()};
    return NoValue{L"no [[face]] names the face " + ZetString(own.word)};
}

std::size_t FormatValues::FaceRowOf(const MachineOperation& operation) const {
    const job::FaceName* row = FaceOf(operation.face);
    return row == nullptr ? m_format.faces.rows.size() + static_cast<std::size_t>(operation.face)
                          : static_cast<std::size_t>(row - m_format.faces.rows.data());
}

std::size_t FormatValues::ToolRowOf(const MachineOperation& operation) const {
    const auto& rows = m_format.tools.rows;
    const auto at = std::find_if(rows.begin(), rows.end(), [&](const job::ToolNumber& row) {
        return row.kind == PartOf(operation) && Agree(row.diameter, DiameterOf(operation)) &&
               Agree(row.length, operation.length) &&
               (row.code.isEmpty() || job::MatchesPattern(operation.code.view(), row.code.view()));
    });
    return static_cast<std::size_t>(at - rows.begin());
}

FormatValue FormatValues::NameOfTool(const MachineOperation& operation) const {
    const std::size_t row = ToolRowOf(operation);
    if (row < m_format.tools.rows.size())
        return FormatWord{m_format.tools.rows[row].number.view()};
    if (m_format.tools.otherwise)
        return FormatWord{m_format.tools.otherwise->view()};
    const double size = DiameterOf(operation);
    return NoValue{L"no [[tool]] is for it" + SizeOf(operation),
                   size > 0.0 ? std::optional(size) : std::nullopt};
}

FormatValue FormatValues::NameOfProfile(const ZetString& profile) const {
    const auto& rows = m_format.profiles.rows;
    if (rows.empty())
        return profile.view();
    const auto at = std::find_if(rows.begin(), rows.end(), [&](const job::ProfileName& row) {
        return job::MatchesPattern(profile.view(), row.pattern.view());
    });
    if (at != rows.end())
        return FormatWord{at->name.view()};
    if (m_format.profiles.otherwise)
        return FormatWord{m_format.profiles.otherwise->view()};
    return NoValue{L"no [[profile]] names " + profile};
}

// ---- frames -------------------------------------------------------------------------------------

FormatValue FormatValues::PlaceAlong(double x, const FormatSubject& subject) const {
    const job::FaceName* row = FaceOf(subject.operation->face);
    if (row == nullptr)
        return x;
    return (row->isXMirrored ? subject.member->length - x : x) + row->xOffset;
}

FormatValue FormatValues::PlaceAcross(double y, const FormatSubject& subject) const {
    const int face = subject.operation->face;
    const job::FaceName* row = FaceOf(face);
    if (row == nullptr)
        return y;
    const std::optional<double>& upper = subject.member->upperEdges[static_cast<std::size_t>(face)];
    if (row->isYMirrored && !upper)
        return NoValue{L"the width of the face is not known, from whose opposite edge it counts"};
    return (row->isYMirrored ? *upper - y : y) + row->yOffset;
}

/// A side across an axis that is turned round is the opposite one.
int FormatValues::SideOf(const MachineOperation& operation) const {
    const job::FaceName* row = FaceOf(operation.face);
    if (row == nullptr)
        return operation.side;
    const bool isMirrored = operation.side < kFirstSideAcross ? row->isXMirrored : row->isYMirrored;
    return isMirrored ? operation.side ^ 1 : operation.side;
}

/// Each axis that is turned round mirrors an angle, and so does its direction.
FormatValue FormatValues::AngleOf(const MachineOperation& operation) const {
    const bool isClockwise = m_format.numbers.angles == job::AngleDirection::kClockwise;
    if (operation.kind == MachineOperationKind::kMitre)
        return isClockwise ? -operation.angle : operation.angle;
    const job::FaceName* row = FaceOf(operation.face);
    const bool isXMirrored = row != nullptr && row->isXMirrored;
    const bool isYMirrored = row != nullptr && row->isYMirrored;
    double angle = operation.angle;
    if (isXMirrored)
        angle = 180.0 - angle;
    if (isYMirrored != isClockwise)
        angle = -angle;
    if (operation.kind != MachineOperationKind::kSlot)
        return angle;
    angle = std::fmod(angle, 180.0);
    return angle < 0.0 ? angle + 180.0 : angle;
}

job::FormatPart PartOf(const MachineOperation& operation) {
    if (operation.kind == MachineOperationKind::kMark && operation.mark == kTextMark)
        return job::FormatPart::kText;
    constexpr auto kFirst = static_cast<int>(job::FormatPart::kHole);
    return static_cast<job::FormatPart>(kFirst + static_cast<int>(operation.kind));
}

}  // namespace plugin
