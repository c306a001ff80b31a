#pragma once

#include "job/Job.h"
#include "job/ValidationTypes.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// @file
/// A job file as it stands: one structure per table, ids not yet resolved, and the places that a
/// later fault is told at.

namespace job {

/// A place in the job file; 0: the line or the file as a whole.
struct Position {
    long line = 0;
    long column = 0;
};

/// The faults of one job file, gathered while it is read and checked.
class JobFaults {
  public:
    struct Fault {
        Position at;
        std::string text;
        std::string file = {};  ///< "": the one that is read
    };

    void Add(Position at, std::string text) { m_faults.push_back({at, std::move(text)}); }
    /// Those of another file that this one names.
    void AddOf(const std::string& file, JobFaults faults);
    bool IsEmpty() const { return m_faults.empty(); }
    std::size_t GetCount() const { return m_faults.size(); }
    /// By file, line and column; those of one place as they were found.
    std::vector<Fault> TakeSorted();

  private:
    std::vector<Fault> m_faults;
};

/// Where a table and the values of its keys stand.
struct PlacedTable {
    Position at;
    std::map<std::string, Position, std::less<>> keys;
    bool isSound = false;  ///< no fault in it so far: what its keys say together can be judged

    /// Of a key's value; of the table where it has not the key.
    Position PlaceOf(std::string_view key) const {
        const auto found = keys.find(key);
        return found == keys.end() ? at : found->second;
    }
};

/// A text that refers to something, or that must be unlike others.
struct PlacedText {
    ZetString text;
    Position at;
};

/// What a corner notch's format can be given; the library's selectors.
enum class NotchValue : int {
    kX = 0,
    kCornerX = 1,
    kY = 2,
    kCornerY = 3,
    kLength = 4,
    kWidth = 5,
};

/// Where a corner notch lies across the face, in words of its own.
enum class NotchAcross : int {
    kLower = static_cast<int>(NotchCorner::kStart),
    kUpper = static_cast<int>(NotchCorner::kEnd),
    kAny = static_cast<int>(NotchCorner::kAny),
};

/// Where the slope of a top flange can come from.
enum class SlopeSource : int {
    kName = eProfPropName,
    kFixed = eProfPropFixed,
};

struct JobTable {
    ZetString name;
    std::vector<NcFilePattern> ncFiles;
    PlacedText output{L"out", {}};
    std::optional<CalendarDate> date;
    long maximumQuantity = Job().maximumQuantity;
};

struct ProjectTable : ProjectData {
    PlacedText fileName;
    PlacedText settingsFile{ProjectData().settingsFile, {}};
    PlacedText coldRolledOrderDate;
    PlacedText revisionDate;
    PlacedText deliveryDate;
    PlacedText commentMarker{ProjectData().commentMarker, {}};
};

struct TolerancesTable : Tolerances {
    bool areDistancesChecked = true;
};

struct FileTable : OutputFile, PlacedTable {
    PlacedText id;
    PlacedText ending;
    std::optional<LineEnds> lineEnds;
    PlacedText format{L"records", {}};
    PlacedText folder;
    PlacedText names;
};

struct SecondaryPartsTable : Group, PlacedTable {
    std::vector<PlacedText> files = {
        {L"order", {}}
    };
};

struct GroupTable : SecondaryPartsTable {
    PlacedText id;
    std::optional<std::vector<ZetString>> header;
};

struct StockTable : Stock, PlacedTable {};

struct CuttingTable : Cutting {
    PlacedText remnants;
};

struct DimensionTable : PlacedTable {
    std::optional<long> start;
    std::optional<long> length;
    std::optional<double> value;
};

struct SizeTable : DimensionTable {
    eProfPropType source = eProfPropHeader;
};

struct ThicknessTable : SizeTable {
    double factor = 1.0;
};

struct SlopeTable : DimensionTable {
    SlopeSource source = SlopeSource::kFixed;
};

struct AttributesTable {
    double height = 0.0;
    double topFlange = 0.0;
    double bottomFlange = 0.0;
    double thickness = 0.0;
};

/// What is missing does not limit.
struct LimitsTable : PlacedTable {
    std::optional<long> maxHoles;
    std::optional<long> maxInternalContours;
    std::optional<long> maxExternalContours;
    double minLength = 0.0;
    std::optional<double> maxLength;
};

struct ReportTable {
    ReportTypes types = kDefaultReports;
};

struct MemberTypeTable : PlacedTable {
    PlacedText id;
    ZetString profile;
    ZetString code;
    bool isSkipped = false;
    PlacedText group;
    SizeTable height;
    SizeTable width;
    ThicknessTable thickness;
    std::optional<SlopeTable> slope;
    std::optional<AttributesTable> attributes;
    FlangeZero topFlange;
    FlangeZero bottomFlange;
    long nameStart = 0;
    long nameLength = 0;
    ZetString description;
    ZetString shortName;
    LimitsTable limits;
    ReportTable report;
    PlacedText pattern;
    bool areMarksMade = false;
};

struct HoleRuleTable : HoleRule, PlacedTable {
    PlacedText id;
    PlacedText code;
    PlacedText otherwiseSuffix;
};

struct UncoveredHolesTable : UncoveredRule {
    PlacedText code{UncoveredRule().code, {}};
};

struct CornerNotchTable : CornerNotch, PlacedTable {
    PlacedText id;
    NotchAcross across = NotchAcross::kLower;
    eHoleFace face = eHoleFaceWeb;
    long corners = 0;
    bool isRectangle = false;
    bool isParallel = false;
    PlacedText output;
    std::vector<NotchValue> values;
};

struct UncoveredNotchesTable : UncoveredRule {
    PlacedText code{UncoveredRule().code, {}};
};

struct TrimTable : TrimRule, PlacedTable {
    PlacedText id;
    PlacedText code;
};

struct PatternHoleTable : PatternHole, PlacedTable {
    PlacedText message{PatternHole().message, {}};
};

struct FixedPatternTable : FixedPattern, PlacedTable {
    PlacedText id;
    std::vector<PatternHoleTable> holes;
};

struct AssemblyPartTable {
    PlacedText mark;
    long count = 1;
};

struct AssemblyTable {
    PlacedText main;
    std::vector<AssemblyPartTable> parts;
};

struct AdditionalInfoTable {
    std::vector<ZetString> members;
    std::vector<ZetString> nonStandard;
    std::vector<ZetString> errors;
    std::vector<ZetString> warnings;
    std::vector<InfoBlock> order = {kErrorsBlock, kWarningsBlock, kAllMembersBlock};
    bool hasTotals = true;
};

/// A whole job file.
struct JobDocument {
    JobTable job;
    NcInput nc;
    Reports reports;
    ProjectTable project;
    TolerancesTable tolerances;
    std::vector<FileTable> files;
    SecondaryPartsTable secondaryParts;
    std::vector<GroupTable> groups;
    CuttingTable cutting;
    std::vector<StockTable> stocks;
    std::vector<MemberTypeTable> memberTypes;
    std::vector<HoleRuleTable> holeRules;
    UncoveredHolesTable uncoveredHoles;
    std::vector<CornerNotchTable> cornerNotches;
    UncoveredNotchesTable uncoveredNotches;
    std::vector<TrimTable> trims;
    std::vector<FixedPatternTable> patterns;
    std::vector<AssemblyTable> assemblies;
    AdditionalInfoTable additionalInfo;
};

}  // namespace job
