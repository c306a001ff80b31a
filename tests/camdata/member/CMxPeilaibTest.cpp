#include "support/TestMember.h"
#include "support/host/FakeHostObjects.h"

#include "camdata/member/CMxPeilaib.h"

#include <iterator>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace {

using Lines = ZetArray<ZetString>;

TEST(CMxPeilaibTest, ANewMemberIsValidAndNotProcessed) {
    const TestMember member;
    EXPECT_EQ(member.GetMemStatus(), eMemProcessNotProcessed);
    EXPECT_TRUE(member.GetValid());
    EXPECT_FALSE(member.GetNonStd());
    EXPECT_EQ(member.GetGroupID(), -1);
    EXPECT_TRUE(member.GetUseExistingCodeForValid());
    EXPECT_TRUE(member.GetHolesAtNonStdReport());
    EXPECT_FALSE(member.GetStdHolesReport());
    EXPECT_FALSE(member.GetNesting());
    EXPECT_EQ(member.GetNoOfFeatures(), 0);
    EXPECT_EQ(member.GetNoOfHoles(), 0);
    EXPECT_EQ(member.GetNoOfContours(), 0);
    EXPECT_EQ(member.GetNoOfInternalContours(), 0);
    EXPECT_EQ(member.GetNoOfExternalContours(), 0);
    EXPECT_EQ(member.m_validations.GetReportType(eValidationMaximumLength), eReportingError);
}

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

    const std::pair<const char*, Lines> lists[] = {
        {"general ",        member.m_generalMsgs   },
        {"error ",          member.m_errors        },
        {"warning ",        member.m_warnings      },
        {"nonstd list ",    member.m_nonStdMsgs    },
        {"second error ",   member.m_secondErrors  },
        {"second warning ", member.m_secondWarnings},
    };
    std::string effect;
    for (const auto& [name, lines] : lists)
        effect += lines == Lines{line} ? name : lines.isEmpty() ? "" : "wrong lines ";
    effect += member.GetNonStd() ? "nonstd " : "";
    if (member.GetValid() == invalid.GetValid())
        effect += member.GetValid() ? "valid " : "invalid ";
    return effect;
}

struct ReportCase {
    int type;
    const char* ofReportType;
    const char* ofValidation;
};

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
        EXPECT_EQ(EffectOf([&](TestMember& m) { m.AppendMsg_VT(type, L"line"); }, L"line"),
                  row.ofReportType);
        EXPECT_EQ(EffectOf([&](TestMember& m) { FindOneHoleTooMany(m, type); }, tooMany),
                  row.ofValidation);
    }
}

TEST(CMxPeilaibTest, ABlockOfLinesStaysTogether) {
    TestMember member;
    const Lines block = {L"one", L"two"};
    member.AppendMsg_VT(eReportingSecondNonStd, L"first");
    member.AppendMsg_VT(eReportingSecondNonStd, block);
    const Lines expected = {L"first", L"one", L"two"};
    EXPECT_EQ(member.m_secondWarnings, expected);
    member.AppendMsg_VT(eReportingNonStdSilent, block);
    EXPECT_TRUE(member.m_warnings.isEmpty());
    EXPECT_TRUE(member.m_nonStdMsgs.isEmpty());
}

TEST(CMxPeilaibTest, AMessageGoesToTheListOfItsType) {
    const std::pair<int, const char*> cases[] = {
        {-1, ""                   },
        {0,  "general "           },
        {1,  "error "             },
        {2,  "warning "           },
        {3,  "nonstd list nonstd "},
        {4,  ""                   },
    };
    for (const auto& [value, expected] : cases) {
        SCOPED_TRACE(value);
        const auto type = static_cast<eMsgType>(value);
        const bool isKnown = *expected != '\0';
        EXPECT_EQ(EffectOf([&](TestMember& m) { EXPECT_EQ(m.AppendMsg(type, L"line"), isKnown); },
                           L"line"),
                  expected);
    }
}

// Status and quantity

struct StatusCase {
    const char* name;
    int recordType;
    bool valid;
    long warnings;
    long secondWarnings;
    eMemProcessStatus status;
    bool isWarning;
};

const StatusCase kStatuses[] = {
    {"not a member, though invalid", 1, false, 1, 0, eMemProcessNotProcessed, true },
    {"invalid, with warnings",       2, false, 1, 0, eMemProcessInvalid,      true },
    {"one warning",                  2, true,  1, 0, eMemProcessWarnings,     true },
    {"one second warning",           2, true,  0, 1, eMemProcessClean,        false},
    {"two second warnings",          2, true,  0, 2, eMemProcessWarnings,     true },
    {"clean",                        2, true,  0, 0, eMemProcessClean,        false},
};

TEST(CMxPeilaibTest, StatusIsTheFirstThatApplies) {
    for (const StatusCase& row : kStatuses) {
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
    ZetNCHeaderData header;
    header.quantity = 5;
    TestMember member;
    member.m_memType.SetHeaderData(header);
    member.SetValid(false);
    EXPECT_EQ(member.SubtractQty(3), -3);
    EXPECT_EQ(member.SubtractQty(), -1);
    EXPECT_EQ(member.GetQty(), 5);
    member.SetValid(true);
    EXPECT_EQ(member.SubtractQty(3), 2);
    EXPECT_EQ(member.SubtractQty(), 1);
    EXPECT_EQ(member.SubtractQty(4), -3);
    EXPECT_EQ(member.GetQty(), -3);
}

// Entry calls

ZetNCCreator CreatorOf(FakePartEntity& entity) {
    ZetNCCreator creator;
    creator.setNCEntity(&entity);
    creator.create();
    return creator;
}

TEST(CMxPeilaibTest, MemberTypeGivesGroupAndReplacesTheHeader) {
    FakePartEntity entity;
    ZetNCCreator creator = CreatorOf(entity);
    TestMember member;
    member.m_memType.SetRecordType(7);
    member.SetNCObjects(&creator);
    CMemTypeAndAttrib type;
    type.SetRecordType(3);
    CMemberValidations validations;
    validations.SetPartofAssy(true);
    validations.SetReportType(eValidationNoOfHoles, eReportingSecondError);
    member.SetMemObjects(type, validations);
    EXPECT_EQ(member.GetGroupID(), 3);
    EXPECT_EQ(member.GetProfileName(), L"");
    EXPECT_TRUE(member.getIsPartOfAssy());
    EXPECT_EQ(member.m_validations.GetReportType(eValidationNoOfHoles), eReportingSecondError);
}

TEST(CMxPeilaibTest, OnlyCodeBTakesItsNameFromTheModel) {
    const struct {
        const wchar_t* code;
        ZetNCEntity::NCTypes type;
        const wchar_t* name;
    } cases[] = {
        {L"B",  ZetNCEntity::eNCTypeStructure, L"Z200"},
        {L"B",  ZetNCEntity::eNCTypeBeam,      L"C150"},
        {L"b",  ZetNCEntity::eNCTypeStructure, L"C150"},
        {L"SO", ZetNCEntity::eNCTypeStructure, L"C150"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(testing::Message() << row.code << ' ' << row.type);
        FakePartEntity entity;
        entity.m_profileCode = row.code;
        entity.m_type = row.type;
        ZetNCCreator creator = CreatorOf(entity);
        TestMember member;
        member.SetNCObjects(&creator);
        EXPECT_EQ(member.GetProfileName(), row.name);
    }
}

TEST(CMxPeilaibTest, KeepsWhatTheCreatorBringsUntilTheNextOne) {
    FakePartEntity entity;
    ZetNCCreator creator = CreatorOf(entity);
    TestMember member;
    member.SetNCObjects(&creator);
    member.SetNCObjects(nullptr);
    EXPECT_EQ(member.m_creator, &creator);
    EXPECT_EQ(member.m_entity, &entity);
    EXPECT_EQ(member.m_equalPart.get(), &entity.m_equalPart);
    EXPECT_EQ(member.m_structure.getViews().length(), 2);
    EXPECT_EQ(member.GetProfileName(), L"C150");
    member.SetEntTypeAndProfileName(ZetNCEntity::eNCTypePlate, L"PL10");
    EXPECT_EQ(member.m_entityType, ZetNCEntity::eNCTypePlate);
    EXPECT_EQ(member.GetProfileName(), L"PL10");

    ZetNCCreator ofNothing;
    member.SetNCObjects(&ofNothing);
    EXPECT_EQ(member.m_creator, &ofNothing);
    EXPECT_EQ(member.m_entity, nullptr);
    EXPECT_FALSE(member.getIsMainPart());
    EXPECT_TRUE(member.m_structure.getViews().isEmpty());
    EXPECT_EQ(member.GetProfileName(), L"");
}

TEST(CMxPeilaibTest, TextsAndDimensionsAreNotTakenForEachOther) {
    ZetNCHeaderData header;
    header.drawingNumber = L"D-7";
    header.mark = L"P12";
    header.length = 1234.56789;
    header.height = 200.0;
    header.width = 75.0;
    header.thickness = 2.5;
    CMemAttrib attributes;
    attributes.SetValues(0.0, 70.0, 80.0, 0.0);
    TestMember member = MemberOf(header);
    member.m_memType.SetMemAttrib(attributes);
    EXPECT_EQ(member.GetDwgNo(), L"D-7");
    EXPECT_EQ(member.GetMark(), L"P12");
    EXPECT_EQ(member.GetLength(), 1234.568);
    EXPECT_EQ(member.GetWebWidth(), 200.0);
    EXPECT_EQ(member.GetProfileWidth(), 75.0);
    EXPECT_EQ(member.GetProfileThick(), 2.5);
    EXPECT_EQ(member.GetTopFlangeWidth(), 80.0);
    EXPECT_EQ(member.GetBotFlangeWidth(), 70.0);
}

TEST(CMxPeilaibTest, EachRecordHoldsOneReferenceToTheEqualPart) {
    FakePartEntity entity;
    FakePartEntity other;
    ZetNCCreator creator = CreatorOf(entity);
    ZetNCCreator otherCreator = CreatorOf(other);
    auto member = std::make_unique<TestMember>();
    member->SetNCObjects(&creator);
    member->SetNCObjects(&creator);
    EXPECT_EQ(entity.m_equalPart.m_references, 1);
    {
        TestMember copy = *member;
        EXPECT_EQ(entity.m_equalPart.m_references, 2);
        TestMember assigned;
        assigned.SetNCObjects(&otherCreator);
        assigned = copy;
        EXPECT_EQ(other.m_equalPart.m_references, 0);
        EXPECT_EQ(entity.m_equalPart.m_references, 3);
        copy.SetNCObjects(&otherCreator);
        EXPECT_EQ(entity.m_equalPart.m_references, 2);
        EXPECT_EQ(assigned.m_equalPart.get(), &entity.m_equalPart);
    }
    EXPECT_EQ(entity.m_equalPart.m_references, 1);
    EXPECT_EQ(other.m_equalPart.m_references, 0);
    member.reset();
    EXPECT_EQ(entity.m_equalPart.m_references, 0);
    EXPECT_EQ(entity.m_model.m_references, 0);
}

// Host queries

/// A member of an entity, ready to be asked.
struct HostedMember {
    HostedMember() { member.SetNCObjects(&creator); }

    FakePartEntity entity;
    ZetNCCreator creator = CreatorOf(entity);
    TestMember member;
};

TEST(CMxPeilaibTest, EntityPropertiesAreSixTexts) {
    const std::pair<int, const wchar_t*> cases[] = {
        {-1, L""               },
        {0,  L"part number"    },
        {1,  L"assembly number"},
        {2,  L"name"           },
        {3,  L"material"       },
        {4,  L"finish"         },
        {5,  L"remark"         },
        {6,  L""               },
    };
    HostedMember host;
    for (const auto& [value, text] : cases)
        EXPECT_EQ(host.member.GetEntProp(static_cast<eEntProp>(value)), text) << value;
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
    entity.m_model.m_offers = {
        {IStraightBeam::kId, &beam}
    };
    EXPECT_EQ(TestMember::GetStBeamObj(&entity), &beam);
    EXPECT_EQ(beam.m_references, 1);
    EXPECT_EQ(entity.m_model.m_references, 0);
}

TEST(CMxPeilaibTest, BeamEndPointsLieOnTheReferenceAxis) {
    FakeBeam beam;
    ZetGeomPoint3d start;
    ZetGeomPoint3d end;
    ZetGeomVector3d dir;
    const auto endPoints = [&](FakeBeam* of) {
        return TestMember::GetBeamEndPoints(of, eProfRefAxisTopRight, start, end, dir);
    };
    EXPECT_TRUE(endPoints(&beam));
    const ZetGeomPoint3d expectedStart = {5.0, 2.0, 3.0};
    const ZetGeomPoint3d expectedEnd = {5.0, 2.0, 13.0};
    const ZetGeomVector3d alongZ = {0.0, 0.0, 1.0};
    EXPECT_EQ(start, expectedStart);
    EXPECT_EQ(end, expectedEnd);
    EXPECT_EQ(dir, alongZ);

    EXPECT_FALSE(endPoints(nullptr));
    beam.m_length = 0.0;
    EXPECT_FALSE(endPoints(&beam));
    beam.m_offsetResult = kHostFail;
    EXPECT_EQ(RaisedBy([&] { endPoints(&beam); }), kHostFail);
    beam.m_endPointsResult = kHostNoInterface;
    EXPECT_EQ(RaisedBy([&] { endPoints(&beam); }), kHostNoInterface);
    EXPECT_EQ(end, expectedEnd);
}

}  // namespace
