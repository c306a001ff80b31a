#include "support/AssertionOf.h"
#include "support/CurrentTolerance.h"
#include "support/TestMember.h"

#include "camdata/output/CMxCamGlobAcc.h"
#include "camdata/platform/host/MxSettings.h"
#include "camdata/project/CProjectInformation.h"
#include "camdata/tolerance/CMxGeom.h"

#include <fstream>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace ZetProjectDataEnums;

/// Two groups of member group IDs 0 and 1, the first one sorted by length; group IDs of members: 0
/// is in the first, 2 in a group that is not there.
CMxCamGlobAcc Accumulator() {
    ZetArray<CMxGroups> groups = {{}, {}};
    ZetArray<long> files = {4};
    ZetArray<ZetString> headers = {L"H"};
    ZetArray<eSortOrder> keys = {eSortLength};
    ZetArray<long> none;
    ZetArray<ZetString> noLines;
    groups[0].setValues(3, none, noLines, keys);
    groups[0].setValues(0, files, headers);
    EXPECT_TRUE(files.isEmpty() && headers.isEmpty() && keys.isEmpty());
    EXPECT_EQ(groups[0].GetFileGroupIDs(), ZetArray<long>{4});
    groups[1].setValues(1, ZetArray<long>(), {}, {eSortMark});
    ZetArray<int> map = {0, 1, 2};
    CMxCamGlobAcc accumulator;
    accumulator.appendGroups(map, groups);
    EXPECT_TRUE(map.isEmpty() && groups.isEmpty());
    return accumulator;
}

TEST(CMxCamGlobAccTest, AppendCountsAndGivesTheSortOrderOfTheGroup) {
    CMxCamGlobAcc accumulator = Accumulator();
    TestMember member;
    member.SetSortOrderArr({eSortGroupID});
    member.SetGroupID(0);
    EXPECT_TRUE(accumulator.Append(&member));
    EXPECT_TRUE(accumulator.Append(&member));
    EXPECT_EQ(accumulator.GetCount(), 2);
    EXPECT_EQ(member.GetSortOrderArr(), ZetArray<eSortOrder>{eSortLength});
    // A part of an assembly that no host object calls the main part.
    member.m_validations.SetPartofAssy(true);
    accumulator.Append(&member);
    EXPECT_EQ(member.GetSortOrderArr(), ZetArray<eSortOrder>{eSortMark});
}

TEST(CMxCamGlobAccTest, AppendOfAnUnknownGroupChangesNothing) {
    CMxCamGlobAcc accumulator = Accumulator();
    for (const long groupID : {-1, 2, 3, 103}) {
        SCOPED_TRACE(groupID);
        TestMember member;
        member.SetGroupID(groupID % 100);
        member.m_validations.SetPartofAssy(groupID > 100);
        EXPECT_EQ(AssertionOf([&] { accumulator.Append(&member); }), "isValid( index )");
        EXPECT_TRUE(member.GetSortOrderArr().isEmpty());
    }
    EXPECT_EQ(accumulator.GetCount(), 0);
}

TEST(CMxCamGlobAccTest, NamesAreFilledUpButNotCut) {
    ZetNCProjectData data;
    data.SetData(eZetCClient, L"AB");
    CMxCamGlobAcc accumulator;
    accumulator.SetProjectData(data);
    data.SetData(eZetCClient, L"later");
    EXPECT_EQ(accumulator.GetAnyName(eZetCClient, 6), L"AB    ");
    for (const long width : {2, 1, 0, -5})
        EXPECT_EQ(accumulator.GetAnyName(eZetCClient, width), L"AB");
    EXPECT_EQ(accumulator.GetAnyName(eZetCDesigner, 3), L"   ");
    EXPECT_EQ(accumulator.GetAnyName(static_cast<eZetCProjectDataID>(99), 0), L"");
}

TEST(CMxCamGlobAccTest, VersionsOfHostAndLibrary) {
    CMxCamGlobAcc accumulator;
    EXPECT_EQ(accumulator.GetBaseDllVersion(), L"");
    accumulator.SetMxProductVersion();
    EXPECT_EQ(accumulator.GetMxProductVersion(), L"[Unknown]");
    MxSettings::getInstance().setValue(L"CurrentMxVersion", L"2024 SP1");
    accumulator.SetMxProductVersion();
    EXPECT_EQ(accumulator.GetMxProductVersion(), L"2024 SP1");

    std::ifstream file(CAMDATA_VERSION_FILE);
    std::string version;
    ASSERT_TRUE(std::getline(file, version)) << CAMDATA_VERSION_FILE;
    version += ".0";
    accumulator.SetDllVer(L"plug-in 9.9");
    EXPECT_EQ(accumulator.GetCamDllVersion(), L"plug-in 9.9");
    EXPECT_EQ(accumulator.GetBaseDllVersion().toUtf8(), version);
    EXPECT_EQ(accumulator.GetMxProductVersion().toUtf8(), version.substr(0, 4));
}

TEST(CMxCamGlobAccTest, TolerancesAreStoredNotSelected) {
    CMxCamGlobAcc::SetGeomEPSs(1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0);
    using G = CMxGeom;
    // clang-format off
    const std::vector<double> values = {
        G::GetEPS(), G::GetGenTol(), G::GetXTol(), G::GetYTol(), G::GetAngTol(), G::GetMinEdgeDist(),
        G::GetMinEdgeDistFromFace(), G::GetMinEndDist()};
    // clang-format on
    EXPECT_EQ(values, (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_FALSE(CMxCamGlobAcc::SetGeomEPSsFromDefault(L"fine"));
    EXPECT_EQ(CMxGeom::GetEPS(), 1.0);
    EXPECT_TRUE(CurrentToleranceIs(0.1));
}

// Ownership

/// Project information that counts its ends.
class CountedInformation final : public CProjectInformation {
  public:
    explicit CountedInformation(int& ends) : m_ends(ends) {}
    CountedInformation(const CountedInformation&) = delete;
    CountedInformation& operator=(const CountedInformation&) = delete;
    ~CountedInformation() override { ++m_ends; }

  private:
    int& m_ends;
};

TEST(CMxCamGlobAccTest, ProjectInformationEndsWithItsLastOwner) {
    int ends = 0;
    CMxCamGlobAcc accumulator;
    accumulator.showProjInfoUID();
    auto* information = new CountedInformation(ends);
    accumulator.SetProjectInfo(information);
    accumulator.SetProjectInfo(information);
    EXPECT_EQ(ends, 0);
    CMxCamGlobAcc copy = accumulator;
    EXPECT_EQ(copy.GetProjectInfo(), information);
    accumulator.SetProjectInfo(new CountedInformation(ends));
    EXPECT_EQ(ends, 0);
    copy = CMxCamGlobAcc();
    EXPECT_EQ(ends, 1);
    accumulator.SetProjectInfo(nullptr);
    EXPECT_EQ(ends, 2);
}

TEST(CMxCamGlobAccTest, AssigningTakesAllSettings) {
    CMxCamGlobAcc accumulator;
    EXPECT_TRUE(accumulator.SetManuFacturerDetails(L"prefix", L"folder", L"name"));
    accumulator.SetMinEdgeDist(1.0);
    accumulator.SetMinGaugeLine(2.0);
    accumulator.SetHanding(eHandingLeft);
    accumulator.SetIsCancelled(true);
    accumulator.SetDllVer(L"1.2.3.4");
    ZetNCProjectData data;
    data.SetData(eZetCClient, L"Client");
    accumulator.SetProjectData(data);
    const auto settings = [](const CMxCamGlobAcc& of) {
        return std::tuple(of.GetPrefix(),
                          of.GetDirName(),
                          of.GetFullName(),
                          of.GetMinEdgeDist(),
                          of.GetMinGaugeLine(),
                          of.GetHanding(),
                          of.GetIsCancelled(),
                          of.GetMxProductVersion(),
                          of.GetCamDllVersion(),
                          of.GetBaseDllVersion(),
                          of.GetAnyName(eZetCClient, 0));
    };
    const auto expected = settings(accumulator);
    EXPECT_NE(expected, settings(CMxCamGlobAcc()));
    CMxCamGlobAcc copy;
    copy = accumulator;
    EXPECT_EQ(settings(copy), expected);
    EXPECT_EQ(settings(CMxCamGlobAcc(std::move(accumulator))), expected);
}

TEST(CMxCamGlobAccTest, CopiesShareListsAndCountForThemselves) {
    TestMember member;
    member.SetGroupID(0);
    std::optional<CMxCamGlobAcc> accumulator = Accumulator();
    accumulator->Append(&member);
    CMxCamGlobAcc copy = *accumulator;
    accumulator->Append(&member);
    accumulator.reset();
    EXPECT_EQ(copy.GetCount(), 1);
    copy.Append(&member);
    EXPECT_EQ(copy.GetCount(), 2);
}

}  // namespace
