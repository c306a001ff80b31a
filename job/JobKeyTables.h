#pragma once

#include "job/JobWords.h"

/// @file
/// The tables of a job file: each row reads its key, and docs/job-file.md lists it. They stand in
/// JobTables.cpp, FileTables.cpp, GroupTables.cpp, CuttingTables.cpp, MemberTypeTables.cpp,
/// HoleRuleTables.cpp, NotchTables.cpp and AssemblyTables.cpp.

namespace job {

inline constexpr double kMaxWhole = 2147483647.0;

inline constexpr Range kCount{1.0, kMaxWhole};
inline constexpr Range kLimit{0.0, kMaxWhole};
inline constexpr Range kCharacters{0.0, 255.0};
inline constexpr Range kSomeCharacters{1.0, 255.0};
inline constexpr Range kNameCharacters{-255.0, 255.0};
inline constexpr Range kCoordinate{-100000.0, 100000.0};
inline constexpr Range kDistance{0.0, 100000.0};
inline constexpr Range kSize{0.0, 100000.0, true};
inline constexpr Range kLimitDistance{-100.0, 10000.0};
inline constexpr Range kTolerance{0.0, 100.0};
inline constexpr Range kFactor{0.0, 1000.0, true};
inline constexpr Range kHolesOfGroup{2.0, 100.0};
inline constexpr Range kCorners{3.0, 1000.0};

// clang-format off
inline constexpr const char* kUncoveredActionMeaning = "report: a finding, and no output. output: a finding, and output under `code`. accept: output under `code`.";

template <> const KeyTable& KeysOf<JobTable>();
template <> const KeyTable& KeysOf<NcInput>();
template <> const KeyTable& KeysOf<Reports>();
template <> const KeyTable& KeysOf<ProjectTable>();
template <> const KeyTable& KeysOf<TolerancesTable>();
template <> const KeyTable& KeysOf<FileTable>();
template <> const KeyTable& KeysOf<SecondaryPartsTable>();
template <> const KeyTable& KeysOf<GroupTable>();
template <> const KeyTable& KeysOf<CuttingTable>();
template <> const KeyTable& KeysOf<StockTable>();
template <> const KeyTable& KeysOf<SizeTable>();
template <> const KeyTable& KeysOf<ThicknessTable>();
template <> const KeyTable& KeysOf<SlopeTable>();
template <> const KeyTable& KeysOf<AttributesTable>();
template <> const KeyTable& KeysOf<FlangeZero>();
template <> const KeyTable& KeysOf<LimitsTable>();
template <> const KeyTable& KeysOf<ReportTable>();
template <> const KeyTable& KeysOf<PairRule>();
template <> const KeyTable& KeysOf<GroupRule>();
template <> const KeyTable& KeysOf<UncoveredHolesTable>();
template <> const KeyTable& KeysOf<UncoveredNotchesTable>();
template <> const KeyTable& KeysOf<CornerNotchTable>();
template <> const KeyTable& KeysOf<TrimTable>();
template <> const KeyTable& KeysOf<PatternHoleTable>();
template <> const KeyTable& KeysOf<AssemblyPartTable>();
template <> const KeyTable& KeysOf<AdditionalInfoTable>();
template <> const KeyTable& KeysOf<MemberTypeTable>();
template <> const KeyTable& KeysOf<HoleRuleTable>();
template <> const KeyTable& KeysOf<FixedPatternTable>();
template <> const KeyTable& KeysOf<AssemblyTable>();
// clang-format on

}  // namespace job
