#include "support/TestMember.h"
#include "support/host/FakeHostObjects.h"

#include "camdata/member/CMxPeilaib.h"

#include <iterator>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Lines = ZetArray<ZetString>;

// Findings

/// The lists that hold `line`, then "nonstd", then "valid" or "invalid" when `action` makes the
/// member that whatever it was before.
template <typename Action>
std::string EffectOf(const Action& action, const ZetString& line) {
    TestMember member;
    action(member);
    TestMember invalid;
    invalid.SetValid(false);
    action(invalid);

    // clang-format off
    const std::pair<const char*, Lines> lists[] = {
        {"general ", member.m_generalMsgs}, {"error ", member.m_errors},
        {"warning ", member.m_warnings}, {"nonstd list ", member.m_nonStdMsgs},
        {"second error ", member.m_secondErrors}, {"second warning ", member.m_secondWarnings}};
    // clang-format on
    std::string effect;
    for (const auto& [name, lines] : lists)
        effect += lines == Lines{line} ? name : lines.isEmpty() ? "" : "wrong lines ";
    effect += member.GetNonStd() ? "nonstd " : "";
    if (member.GetValid() == invalid.GetValid())
        effect += member.GetValid() ? "valid " : "invalid ";
    return effect;
}

// clang-format off
struct ReportCase { int type; const char *ofReportType, *ofValidation; };
// clang-format on

const ReportCase kReports[] = {
    {-1, "warning ",               "warning "       },
    {0,  "warning ",               "warning "       },
    {1,  "warning ",               "warning "       },
    {2,  "warning nonstd ",        "warning nonstd "},
    {3,  "nonstd ",                "nonstd "        },
    {4,  "error invalid ",         "error valid "   },
    {5,  "second warning ",        "warning "       },
    {6,  "second warning nonstd ", "warning "       },
    {7,  "second error invalid ",  "warning "       },
    {8,  "warning ",               "warning "       },
};

void FindOneHoleTooMany(TestMember& member, eReportingTypes type) {
    member.m_validations.SetValues(0, 0, 0, 0.0, 0.0, false, false, false, 0);
    member.m_validations.SetReportType(eValidationNoOfHoles, type);
    member.NoOfHoles_Increment();
    member.ValidateMember();
}

TEST(CMxPeilaibTest, AFindingActsByItsReportType) {
    const ZetString tooMany = L"          1 No of holes exceeded the maximum limit of 0";
    for (const ReportCase& row : kReports) {
        SCOPED_TRACE(row.type);
        const auto type = static_cast<eReportingTypes>(row.type);
        const auto append = [&](TestMember& m) { m.AppendMsg_VT(type, L"line"); };
        EXPECT_EQ(EffectOf(append, L"line"), row.ofReportType);
        const auto appendBlock = [&](TestMember& m) { m.AppendMsg_VT(type, Lines{L"line"}); };
        EXPECT_EQ(EffectOf(appendBlock, L"line"), row.ofReportType);
        const auto validate = [&](TestMember& m) { FindOneHoleTooMany(m, type); };
        EXPECT_EQ(EffectOf(validate, tooMany), row.ofValidation);
    }
}

TEST(CMxPeilaibTest, AMessageGoesToTheListOfItsType) {
    int value = -1;
    for (const char* expected : {"", "general ", "error ", "warning ", "nonstd list nonstd ", ""}) {
        SCOPED_TRACE(value);
        const auto type = static_cast<eMsgType>(value++);
        const bool isKnown = *expected != '\0';
        const auto append = [&](auto& m) { EXPECT_EQ(m.AppendMsg(type, L"line"), isKnown); };
        EXPECT_EQ(EffectOf(append, L"line"), expected);
    }
}

// Status and quantity

TEST(CMxPeilaibTest, StatusIsTheFirstThatApplies) {
    // clang-format off
    struct Case { const char* name; int recordType; bool valid; long warnings, secondWarnings;
                  eMemProcessStatus status; bool isWarning; };
    constexpr Case kCases[] = {
        {"not a member, though invalid", 1, false, 1, 0, eMemProcessNotProcessed, true },
        {"invalid, with warnings",       2, false, 1, 0, eMemProcessInvalid,      true },
        {"one warning",                  2, true,  1, 0, eMemProcessWarnings,     true },
        {"one second warning",           2, true,  0, 1, eMemProcessClean,        false},
        {"two second warnings",          2, true,  0, 2, eMemProcessWarnings,     true },
    };
    // clang-format on
    for (const Case& row : kCases) {
        SCOPED_TRACE(row.name);
        TestMember member;
        member.m_memType.SetRecordType(row.recordType);
        member.SetValid(row.valid);
        member.m_warnings.setLength(row.warnings);
        member.m_secondWarnings.setLength(row.secondWarnings);
        EXPECT_EQ(member.GetMemStatus(), row.status);
        EXPECT_EQ(member.IsWarningExist(), row.isWarning);
    }
}

TEST(CMxPeilaibTest, OnlyAValidMemberGivesQuantity) {
    TestMember member = MemberOf(L"", 5, L"");
    member.SetValid(false);
    EXPECT_EQ(member.SubtractQty(3), -3);
    EXPECT_EQ(member.SubtractQty(), -1);
    member.SetValid(true);
    EXPECT_EQ(member.SubtractQty(6), -1);
    EXPECT_EQ(member.GetQty(), -1);
}

// Entry calls

/// A member of an entity, its own or another, ready to be asked.
struct HostedMember {
    HostedMember() : HostedMember(entity) {}
    explicit HostedMember(FakePartEntity& of) : creator(CreatorOf(of)) {
        member.SetNCObjects(&creator);
    }

    FakePartEntity entity;
    ZetNCCreator creator;
    TestMember member;
};

TEST(CMxPeilaibTest, MemberTypeGivesGroupAndReplacesTheHeader) {
    TestMember member = MemberOf(L"", 1, L"C150");
    CMemTypeAndAttrib type;
    type.SetRecordType(3);
    CMemberValidations validations;
    validations.SetPartofAssy(true);
    member.SetMemObjects(type, validations);
    EXPECT_EQ(member.GetGroupID(), 3);
    EXPECT_EQ(member.GetProfileName(), L"");
    EXPECT_TRUE(member.getIsPartOfAssy());
}

TEST(CMxPeilaibTest, OnlyCodeBTakesItsNameFromTheModel) {
    constexpr auto kStructure = ZetNCEntity::eNCTypeStructure;
    const std::tuple<const wchar_t*, ZetNCEntity::NCTypes, const wchar_t*> cases[] = {
        {L"B", kStructure,               L"Z200"},
        {L"B", ZetNCEntity::eNCTypeBeam, L"C150"},
        {L"b", kStructure,               L"C150"},
    };
    for (const auto& [code, type, name] : cases) {
        FakePartEntity entity;
        entity.m_profileCode = code;
        entity.m_type = type;
        EXPECT_EQ(HostedMember(entity).member.GetProfileName(), name) << code << ' ' << type;
    }
}

TEST(CMxPeilaibTest, KeepsWhatTheCreatorBringsUntilTheNextOne) {
    HostedMember host;
    TestMember& member = host.member;
    member.SetNCObjects(nullptr);
    EXPECT_EQ(member.m_creator, &host.creator);
    EXPECT_EQ(member.m_entity, &host.entity);
    EXPECT_EQ(member.m_equalPart.get(), &host.entity.m_equalPart);
    EXPECT_EQ(member.m_structure.getViews().length(), 2);
    EXPECT_EQ(member.GetProfileName(), L"C150");
    member.SetEntTypeAndProfileName(ZetNCEntity::eNCTypePlate, L"PL10");
    EXPECT_EQ(member.m_entityType, ZetNCEntity::eNCTypePlate);
    EXPECT_EQ(member.GetProfileName(), L"PL10");

    ZetNCCreator ofNothing = host.creator;
    ofNothing.setNCEntity(nullptr);
    EXPECT_EQ(ofNothing.getHeader().profileName, L"C150") << "until it creates";
    ofNothing.create();
    member.SetNCObjects(&ofNothing);
    EXPECT_EQ(member.m_creator, &ofNothing);
    EXPECT_EQ(member.m_entity, nullptr);
    EXPECT_FALSE(member.getIsMainPart());
    EXPECT_TRUE(member.m_structure.getViews().isEmpty());
    EXPECT_EQ(member.GetProfileName(), L"");
}

TEST(CMxPeilaibTest, DimensionsAreNotTakenForEachOther) {
    CMemAttrib attributes;
    attributes.SetValues(0.0, 70.0, 80.0, 0.0);
    // clang-format off
    TestMember member = MemberOf(HeaderOf{.length = 1234.56789, .height = 200.0, .width = 75.0,
                                          .thickness = 2.5});
    member.m_memType.SetMemAttrib(attributes);
    const std::vector<double> dimensions = {
        member.GetLength(), member.GetWebWidth(), member.GetProfileWidth(),
        member.GetProfileThick(), member.GetTopFlangeWidth(), member.GetBotFlangeWidth()};
    // clang-format on
    EXPECT_EQ(dimensions, (std::vector{1234.568, 200.0, 75.0, 2.5, 80.0, 70.0}));
}

TEST(CMxPeilaibTest, EachRecordHoldsOneReferenceToTheEqualPart) {
    FakePartEntity entity, other;
    ZetNCCreator creator = CreatorOf(entity), otherCreator = CreatorOf(other);
    {
        TestMember member;
        member.SetNCObjects(&creator);
        member.SetNCObjects(&creator);
        EXPECT_EQ(entity.m_equalPart.m_references, 1);
        const TestMember copy = member;
        member.SetNCObjects(&otherCreator);
        EXPECT_EQ(entity.m_equalPart.m_references + other.m_equalPart.m_references, 2);
        member = copy;
        EXPECT_EQ(other.m_equalPart.m_references, 0);
        EXPECT_EQ(entity.m_equalPart.m_references, 2);
    }
    EXPECT_EQ(entity.m_equalPart.m_references + entity.m_model.m_references, 0);
}

// Host queries

TEST(CMxPeilaibTest, EntityPropertiesAreSixTexts) {
    HostedMember host;
    ZetString texts;
    for (int property = -1; property <= 6; ++property)
        texts += host.member.GetEntProp(static_cast<eEntProp>(property)) + L",";
    EXPECT_EQ(texts, L",part,assembly,name,material,finish,remark,,");
    EXPECT_EQ(host.entity.m_equalPart.m_references, 1);
    host.entity.m_model.m_offers.clear();
    EXPECT_EQ(host.member.GetEntProp(eEntPropName), L"");
    EXPECT_EQ(TestMember().GetEntProp(eEntPropName), L"");
}

TEST(CMxPeilaibTest, SectionNameComesFromTheStructureObject) {
    HostedMember host;
    host.entity.m_type = ZetNCEntity::eNCTypeBeam;
    EXPECT_EQ(host.member.GetSPName(), L"Z200");
    EXPECT_EQ(host.entity.m_structure.m_references, 0);
    host.entity.m_model.m_offers.clear();
    EXPECT_EQ(host.member.GetSPName(), L"");
    EXPECT_EQ(TestMember().GetSPName(), L"");
}

TEST(CMxPeilaibTest, MainPartIsWhatHasAllBitsSet) {
    HostedMember host;
    for (const int value : {-1, 0, 1}) {
        host.entity.m_equalPart.m_isMainPart = static_cast<IEqualPartObject::HostBool>(value);
        EXPECT_EQ(host.member.getIsMainPart(), value == -1) << value;
    }
    EXPECT_FALSE(TestMember().getIsMainPart());
}

template <typename Action>
HostResult RaisedBy(const Action& action) {
    try {
        action();
    } catch (const HostComError& error) {
        return error.GetResult();
    }
    return kHostOk;
}

TEST(CMxPeilaibTest, HostFailuresPassThrough) {
    HostedMember host;
    host.entity.m_equalPart.m_result = kHostFail;
    host.entity.m_structure.m_result = kHostNoInterface;
    EXPECT_EQ(RaisedBy([&] { host.member.getIsMainPart(); }), kHostFail);
    EXPECT_EQ(RaisedBy([&] { host.member.GetEntProp(eEntPropRemark); }), kHostFail);
    EXPECT_EQ(RaisedBy([&] { host.member.GetSPName(); }), kHostNoInterface);
    host.entity.m_profileCode = L"B";
    host.creator.create();
    EXPECT_EQ(RaisedBy([&] { host.member.SetNCObjects(&host.creator); }), kHostNoInterface);
    EXPECT_EQ(host.entity.m_equalPart.m_references, 1);
    EXPECT_EQ(host.entity.m_structure.m_references, 0);
    EXPECT_EQ(host.entity.m_model.m_references, 0);
}

// Beams

TEST(CMxPeilaibTest, BeamComesWithOneReference) {
    FakeBeam beam;
    FakePartEntity entity;
    EXPECT_EQ(TestMember::GetStBeamObj(&entity), nullptr);
    EXPECT_EQ(TestMember::GetStBeamObj(nullptr), nullptr);
    entity.m_model.m_offers.assign(1, {IStraightBeam::kId, &beam});
    EXPECT_EQ(TestMember::GetStBeamObj(&entity), &beam);
    EXPECT_EQ(beam.m_references, 1);
    EXPECT_EQ(entity.m_model.m_references, 0);
}

TEST(CMxPeilaibTest, BeamEndPointsLieOnTheReferenceAxis) {
    FakeBeam beam;
    ZetGeomPoint3d start, end;
    ZetGeomVector3d dir;
    const auto endPoints = [&](FakeBeam* of) {
        return TestMember::GetBeamEndPoints(of, eProfRefAxisTopRight, start, end, dir);
    };
    EXPECT_TRUE(endPoints(&beam));
    const ZetGeomPoint3d expectedEnd = {5.0, 2.0, 13.0};
    EXPECT_EQ(start, (ZetGeomPoint3d{5.0, 2.0, 3.0}));
    EXPECT_EQ(end, expectedEnd);
    EXPECT_EQ(dir, (ZetGeomVector3d{0.0, 0.0, 1.0}));

    EXPECT_FALSE(endPoints(nullptr));
    beam.m_length = 0.05;
    EXPECT_TRUE(endPoints(&beam));
    EXPECT_EQ(dir, (ZetGeomVector3d{0.0, 0.0, 1.0}));
    beam.m_length = 10.0;
    endPoints(&beam);
    beam.m_length = 0.0;
    EXPECT_FALSE(endPoints(&beam));
    beam.m_offsetResult = kHostFail;
    EXPECT_EQ(RaisedBy([&] { endPoints(&beam); }), kHostFail);
    beam.m_endPointsResult = kHostNoInterface;
    EXPECT_EQ(RaisedBy([&] { endPoints(&beam); }), kHostNoInterface);
    EXPECT_EQ(end, expectedEnd);
}

}  // namespace
