#include "support/host/FakeHost.h"
#include "support/host/FakeHostObjects.h"

#include "camdata/platform/host/HostComError.h"
#include "camdata/platform/host/HostFunctions.h"
#include "camdata/util/HostBridge.h"

#include <gtest/gtest.h>

namespace {

// Type and text of PLXNAME and of PLXPREFIX; a type below 0: the host does not know it.
// clang-format off
struct VariableCase { int nameType; const wchar_t* nameText; int prefixType;
                      const wchar_t *prefixText, *model, *folder; };
// clang-format on

constexpr int kUnknown = -1;
constexpr int kNone = HostVariable::eTypeNone;
constexpr int kText = HostVariable::eTypeText;

const VariableCase kVariables[] = {
    {kText,     L"Hall.dwg", kText,    L"D:\\Jobs\\", L"Hall.dwg", L"D:\\Jobs\\"},
    {kUnknown,  L"",         kText,    L"D:\\",       L"old name", L"D:\\"      },
    {kText,     L"a",        kUnknown, L"",           L"a",        L"old folder"},
    {kText + 1, L"a",        kNone,    L"b",          L"old name", L"old folder"},
    {kText,     L"",         kText,    nullptr,       L"",         L""          },
};

TEST(HostBridge, DrawingComesFromTheHostAndStaysWithoutIt) {
    for (const VariableCase& row : kVariables) {
        SCOPED_TRACE(::testing::PrintToString(row.model));
        const FakeModule core(L"kwcore.dll");
        const auto setVariable = core.Function<FakeHostSetVariable>("fakeHostSetVariable");
        ASSERT_NE(setVariable, nullptr);
        if (row.nameType != kUnknown)
            setVariable(L"PLXNAME", row.nameType, row.nameText);
        if (row.prefixType != kUnknown)
            setVariable(L"PLXPREFIX", row.prefixType, row.prefixText);
        ZetString model = L"old name";
        ZetString folder = L"old folder";
        EXPECT_EQ(GetModelAndDirName(model, folder), 0);
        EXPECT_EQ(model, row.model);
        EXPECT_EQ(folder, row.folder);
    }
}

// How a host may fail on the way to an interface, and whether that is raised.
// clang-format off
struct HostFault { const char* name; void (*breakEntity)(FakePartEntity& entity); bool isRaised; };
// clang-format on

const HostFault kFaults[] = {
    {"no model object", [](FakePartEntity& e) { e.m_hasModel = false; },               false},
    {"no interface",    [](FakePartEntity& e) { e.m_model.m_offers.clear(); },         false},
    {"query raises",    [](FakePartEntity& e) { e.m_model.m_queryRaises = true; },     true },
    {"name fails",      [](FakePartEntity& e) { e.m_structure.m_result = kHostFail; }, true },
    {"name raises",     [](FakePartEntity& e) { e.m_structure.m_raises = true; },      true },
};

void ExpectNoReferences(const FakePartEntity& entity) {
    EXPECT_EQ(entity.m_model.m_references, 0);
    EXPECT_EQ(entity.m_structure.m_references, 0);
    EXPECT_EQ(entity.m_equalPart.m_references, 0);
}

TEST(HostBridge, ProfileNameComesFromTheHeaderExceptOfStructures) {
    for (const int type : {0, 1, 2, 3}) {
        SCOPED_TRACE(type);
        FakePartEntity entity;
        entity.m_type = static_cast<ZetNCEntity::NCTypes>(type);
        ZetNCCreator creator = CreatorOf(entity);
        EXPECT_EQ(GetProfileNameFromCreator(&creator), type == 2 ? L"Z200" : L"C150");
        ExpectNoReferences(entity);
    }
}

TEST(HostBridge, ProfileNameOfABrokenHost) {
    for (const HostFault& fault : kFaults) {
        SCOPED_TRACE(fault.name);
        FakePartEntity entity;
        fault.breakEntity(entity);
        ZetNCCreator creator = CreatorOf(entity);
        if (fault.isRaised)
            EXPECT_THROW(GetProfileNameFromCreator(&creator), HostComError);
        else
            EXPECT_EQ(GetProfileNameFromCreator(&creator), L"");
        ExpectNoReferences(entity);
    }
    ZetNCCreator withoutEntity;
    EXPECT_EQ(GetProfileNameFromCreator(&withoutEntity), L"");
    EXPECT_EQ(GetProfileNameFromCreator(nullptr), L"");
}

TEST(HostBridge, EqualPartComesWithOneReferenceOrNone) {
    FakePartEntity entity;
    entity.m_model.m_queryRaises = true;
    EXPECT_THROW(GetEqualPartObj(&entity), HostComError);
    ExpectNoReferences(entity);
    entity.m_model.m_queryRaises = false;
    EXPECT_EQ(GetEqualPartObj(&entity), &entity.m_equalPart);
    EXPECT_EQ(entity.m_equalPart.m_references--, 1);
    entity.m_model.m_offers.pop_back();
    EXPECT_EQ(GetEqualPartObj(&entity), nullptr);
    ExpectNoReferences(entity);
    entity.m_hasModel = false;
    EXPECT_EQ(GetEqualPartObj(&entity), nullptr);
    EXPECT_EQ(GetEqualPartObj(nullptr), nullptr);
}

}  // namespace
