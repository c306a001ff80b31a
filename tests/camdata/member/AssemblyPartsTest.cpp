#include "support/TestMember.h"
#include "support/host/FakeHostObjects.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Lines = ZetArray<ZetString>;

/// An assembly of a beam and a structure, and the member of its main part.
struct Assembly {
    Assembly() {
        beam.m_type = ZetNCEntity::eNCTypeBeam;
        beam.m_mark = L"S1";
        beam.m_quantity = 4;
        structure.m_mark = L"S2";
        mainPart.m_attachedEntities = {&beam, &structure};
        creator.setNCEntity(&mainPart);
        creator.setStyle(17);
        creator.create();
        member.SetNCObjects(&creator);
    }

    FakePartEntity mainPart;
    FakePartEntity beam;
    FakePartEntity structure;
    ZetNCCreator creator;
    TestMember member;
};

TEST(AssemblyPartsTest, AttachedPartsAreListedOnceInTheHostsOrder) {
    Assembly assembly;
    assembly.member.GetAttachedPartNos();
    assembly.beam.m_mark = L"later";
    assembly.member.GetAttachedPartNos();
    ZetString listed;
    for (const CMxAttPartNoAndQty& part : assembly.member.m_attachedParts) {
        const ZetNCHeaderData header = part.GetHeaderData();
        listed += ZetString::format(L"%s %d ", part.GetPartNo(), part.GetQty()) +
                  header.profileName + L" " + header.drawingNumber + L"; ";
    }
    EXPECT_EQ(listed, L"S1 4 C150 style 17; S2 0 Z200 style 17; ");
}

TEST(AssemblyPartsTest, AfterAHostFailurePartsAreListedAnew) {
    Assembly assembly;
    assembly.structure.m_structure.m_result = kHostFail;
    EXPECT_THROW(assembly.member.GetAttachedPartNos(), HostComError);
    assembly.structure.m_structure.m_result = kHostOk;
    assembly.member.GetAttachedPartNos();
    EXPECT_EQ(assembly.member.m_attachedParts.length(), 2);
}

TEST(AssemblyPartsTest, WhatAHostMayNotHave) {
    EXPECT_EQ(TestMember().GetAttachedEntityHeaderData(nullptr).profileName, L"");
    FakePartEntity structure;
    structure.m_hasModel = false;
    EXPECT_EQ(TestMember().GetAttachedEntityHeaderData(&structure).profileName, L"");
}

// clang-format off
struct Selected { const wchar_t* mark; long qty; bool isValid; long qtyAfter; };
// clang-format on

/// An assembly of `qty` pieces with one part "S1", and how many the finding names; 0: no finding.
// clang-format off
struct SelectionCase { const char* name; long qty; std::vector<Selected> members; int missing; };
const SelectionCase kSelections[] = {
    {"some are left over", 2, {{L"S1", 5, true, 3}}, 0},
    {"all are used", 2, {{L"S1", 2, true, 0}}, 0},
    {"too few", 4, {{L"S1", 1, true, -3}}, 3},
    {"not valid: none is taken", 3, {{L"S1", 9, false, 9}}, 3},
    {"not selected, whatever is needed", 5, {{L"s1", 9, true, 9}}, 1},
    {"the first of the mark gives", 2, {{L"S0", 9, true, 9}, {L"S1", 9, true, 7}, {L"S1", 9, true, 9}}, 0},
    {"also when it has too few", 4, {{L"S1", 1, true, -3}, {L"S1", 9, true, 9}}, 3},
    {"one too few: the next gives, too", 2, {{L"S1", 1, true, -1}, {L"S1", 9, true, 7}, {L"S1", 9, true, 9}}, 0},
    {"one too few, and no next", 2, {{L"S1", 1, true, -1}}, 1},
    {"one is needed, the first is not valid", 1, {{L"S1", 9, false, 9}, {L"S1", 9, true, 8}}, 0},
};
// clang-format on

TestMember PartOf(const wchar_t* mark, long qty) {
    return MemberOf(mark, qty, L"Z20035-20");
}

/// The member of an assembly of `qty` pieces, to which the part "S1" is attached.
TestMember MainPartOf(long qty) {
    TestMember mainPart = PartOf(L"A1", qty);
    mainPart.m_attachedParts.setLength(1);
    mainPart.m_attachedParts[0].SetPartNo(L"S1");
    // Of no account: what one assembly holds of the part.
    mainPart.m_attachedParts[0].SetQty(6);
    return mainPart;
}

ZetString Shortfall(const wchar_t* kind, int missing) {
    const wchar_t* const rest =
        L"of the single parts (Part no : S1) are not selected / valid for this assembly";
    return ZetString::format(L"          %s %d %s", kind, missing, rest);
}

void CheckSelection(const SelectionCase& row, bool isShortfallWarning) {
    TestMember mainPart = MainPartOf(row.qty);
    mainPart.m_shortfallAsWarning = isShortfallWarning;
    std::vector<TestMember> members;
    for (const Selected& selected : row.members) {
        members.push_back(PartOf(selected.mark, selected.qty));
        members.back().SetValid(selected.isValid);
    }
    ZetArray<CMxPeilaib*> pointers;
    for (TestMember& member : members)
        pointers.append(&member);
    mainPart.CheckAttachedPartsSelection(pointers);

    const wchar_t* const kind = isShortfallWarning ? L"*Warning*:" : L"*Error:";
    const Lines findings = row.missing > 0 ? Lines{Shortfall(kind, row.missing)} : Lines();
    EXPECT_EQ(mainPart.m_errors, isShortfallWarning ? Lines() : findings);
    EXPECT_EQ(mainPart.m_nonStdMsgs, isShortfallWarning ? findings : Lines());
    for (std::size_t i = 0; i < members.size(); ++i)
        EXPECT_EQ(members[i].GetQty(), row.members[i].qtyAfter) << i;
}

TEST(AssemblyPartsTest, SelectedMembersGiveAPieceForEachAssembly) {
    for (const SelectionCase& row : kSelections) {
        SCOPED_TRACE(row.name);
        CheckSelection(row, false);
        CheckSelection(row, true);
    }
}

TEST(AssemblyPartsTest, PartsTakeOverWhatTheLastMemberThatGaveSays) {
    TestMember mainPart = MainPartOf(2);
    TestMember first = PartOf(L"S1", 1);
    TestMember last = PartOf(L"S1", 9);
    last.SetHolesMirrored(true);
    last.m_nonStdMsgs = {L"odd"};
    last.m_splOutStr = L"special";
    ZetArray<CMxPeilaib*> members = {&first, &last};
    mainPart.CheckAttachedPartsSelection(members);
    const CMxAttPartNoAndQty& part = mainPart.m_attachedParts[0];
    EXPECT_TRUE(part.GetMirrored() && part.GetNonStd());
    EXPECT_EQ(part.GetOutStr(), L"special");
}

}  // namespace
