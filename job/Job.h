#pragma once

#include "job/FindingTypes.h"
#include "job/formats/MachineFormat.h"

#include "camdata/holes/eHoleFace.h"
#include "camdata/holes/eHoleShapeType.h"
#include "camdata/member/eSortOrder.h"
#include "camdata/notches/SCheckNotch.h"
#include "camdata/platform/system/Clock.h"
#include "camdata/platform/text/ZetString.h"
#include "camdata/rules/CMemTypeAndAttrib.h"
#include "camdata/rules/CMemberValidations.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// @file
/// A job: what to make of a set of NC files and how one machine is to be judged. Plain values, as
/// docs/job-file.md explains them key by key; mm and degrees. Ids of the job file are resolved:
/// whatever refers to another table holds its position.

namespace job {

/// Files that every job has, by their position.
enum FileRole : std::size_t {
    kOrderFile = 0,     ///< the machine's orders
    kInfoFile = 1,      ///< the additional information
    kErrorFile = 2,     ///< the error blocks
    kWarningFile = 3,   ///< the warning blocks
    kFirstOwnFile = 4,  ///< the job's own from here on
};

/// Ending of the page for people.
inline constexpr const wchar_t* kPageEnding = L"-report.html";
/// Ending of the file that tells programs, and later runs, what was made.
inline constexpr const wchar_t* kRunDocumentEnding = L"-run.json";
/// Ending of the file that holds the cutting lists, written when some group is nested.
inline constexpr const wchar_t* kCuttingListEnding = L"-cutting.txt";
/// The same for programs: one row per piece.
inline constexpr const wchar_t* kCuttingTableEnding = L"-cutting.csv";
/// What is left of the remnants, and the off-cuts worth keeping; written when the job names
/// remnants.
inline constexpr const wchar_t* kRemnantsEnding = L"-remnants.csv";

/// Groups that every job has, by their position, which is their ID too.
enum GroupRole : std::size_t {
    kReservedGroup = 0,   ///< takes no members
    kSecondaryGroup = 1,  ///< the single parts of assemblies
    kFirstOwnGroup = 2,   ///< the job's own from here on
};

/// Blocks of the additional information, by their position.
enum InfoBlock : std::size_t {
    kAllMembersBlock = 0,
    kNonStandardBlock = 1,
    kErrorsBlock = 2,
    kWarningsBlock = 3,
    kInfoBlockCount = 4,
};

/// What ends a line of an output file.
enum class LineEnds {
    kLf,
    kCrLf,
};

/// An NC file for each member, in a folder of the output.
struct NcOutput {
    std::string folder = "nc";        ///< UTF-8
    ZetString names = L"{mark}.nc1";  ///< with values of the member in braces
};

/// One output file.
struct OutputFile {
    ZetString id;
    ZetString ending;                    ///< behind the run's file name, for example "-orders.txt"
    std::vector<ZetString> headerLines;  ///< as they stand, before the project's
    bool hasProjectHeader = true;
    LineEnds lineEnds = LineEnds::kLf;  ///< of a file of machine records
    std::optional<std::size_t> format;  ///< position in Job::formats; without: machine records
    long formatLine = 0;                ///< of its name in the job file
    long formatColumn = 0;
    std::optional<NcOutput> nc;  ///< instead of one file

    /// The library writes it.
    bool IsOfRecords() const { return !format && !nc; }
};

/// Who decides which pieces come from one bar.
enum class BarPlan {
    kGiven,  ///< the library: from the shortest piece up
    kLeast,  ///< fewest bars, or least cost
};

/// What the sections of a group have in common.
enum class GroupSplit { kProfile, kMaterial, kThickness };

/// Bars that nested members are cut from; mm.
struct Stock {
    ZetString profilePattern;  ///< of the profile name; * any text, ? one character
    double length = 0.0;
    std::optional<double> price;   ///< of a bar; without: its length
    std::optional<long> quantity;  ///< bars that are there; without: as many as needed
    double kerf = 0.0;             ///< width of a saw cut
    double gripStart = 0.0;        ///< of the bar's start that nothing is cut from
    double gripEnd = 0.0;
    std::optional<double> leastOffcut;  ///< an off-cut from there on is kept
};

/// How cutting plans are made.
struct Cutting {
    long effort = 4000;    ///< millions of steps
    std::string remnants;  ///< table, relative to the job file's folder, UTF-8; "": none
};

/// Bars that earlier runs have left.
struct Remnant {
    ZetString profileName;
    ZetString material;  ///< "": as members have it whose NC file tells none
    double length = 0.0;
    long quantity = 0;
    ZetString name;  ///< for people

    bool operator==(const Remnant&) const = default;
};

/// One group of members, a section of the order file.
struct Group {
    ZetString id;
    std::vector<std::size_t> files;  ///< positions; the first is the group's main file
    std::vector<ZetString> headerLines;
    std::vector<eSortOrder> sortKeys;
    std::optional<GroupSplit> split;  ///< without: the group is one section
    bool isNested = false;
    double reserveLength = 0.0;  ///< an off-cut that is not longer than this stays as it is
    /// Without: least where a stock fits the profile, else given.
    std::optional<BarPlan> plan;
};

/// Where the flange coordinates of an NC file begin, and which way they are to run: from the web to
/// the free edge, as distances are judged.
struct FlangeZero {
    double zero = 0.0;        ///< NC coordinate of the line that counts as Y = 0
    bool isReversed = false;  ///< Y grows against the NC coordinate

    friend bool operator==(const FlangeZero&, const FlangeZero&) = default;
};

/// A maximum length that no member reaches, mm.
inline constexpr double kAnyLength = 1e9;

/// What a member type reads a number of the profile name for.
struct NumberInName {
    const char* key;     ///< of the job file: "height"
    long start = 0;      ///< its first character, from 0
    long length = 0;     ///< characters
    bool isSize = true;  ///< must be above 0
    long line = 0;       ///< where the job file says so
};

/// How the members of one kind are found and judged.
struct MemberType {
    ZetString id;
    long line = 0;             ///< of its table in the job file; 0: not from there
    ZetString profilePattern;  ///< of the profile name; * any text, ? one character; "": any
    ZetString codePattern;     ///< of the profile code; the same
    bool isSkipped = false;    ///< its members are left out of the run
    std::size_t group = kFirstOwnGroup;
    CMemTypeAndAttrib type;  ///< the group's position is its record type
    std::vector<NumberInName> numbersInName;
    CMemberValidations limits;  ///< their report types do not count
    bool hasSection = false;    ///< `type` has attributes: flanges are as wide as they say
    FlangeZero topFlange;
    FlangeZero bottomFlange;
    std::optional<std::size_t> pattern;  ///< position in Job::patterns
    bool areMarksMade = false;           ///< marks and texts become machine records
    ReportTypes reports = kDefaultReports;
};

/// A second hole that is made in one stroke with the first.
struct PairRule {
    ZetString code;  ///< text that the second hole's code contains
    double spacing = 0.0;
    ZetString prefix = L"y ";  ///< goes before the second hole's code
};

/// Holes of one rule in one column, made in one stroke.
struct GroupRule {
    ZetString code;  ///< goes before each hole's code; "": no groups
    long holeCount = 2;
    bool isMust = false;  ///< a hole outside a group is invalid
};

/// Which holes get which code. Empty lists match any hole.
struct HoleRule {
    ZetString id;
    long line = 0;  ///< of its table in the job file
    eHoleShapeType shape = eHoleShapeRound;
    std::vector<double> diameters;
    std::vector<double> lengths;  ///< overall, of slots and rectangles (those along the member)
    std::vector<eHoleFace> faces;
    /// Y, and face width less Y: a hole that one of either list names is matched.
    std::vector<double> backMarks;
    std::vector<double> otherFaceDistances;
    std::vector<ZetString> excludedMembers;
    long memberNameLength = 0;  ///< of the profile name: > 0 first characters, < 0 last dropped
    ZetString
        otherwiseSuffix;  ///< this rule's id with it is the rule for excluded members; "": none
    ZetString code;
    std::vector<PairRule> pairs;
    bool isPairMust = false;  ///< a hole without its pair is invalid
    GroupRule group;
};

/// What happens to what no rule covers.
enum class Uncovered {
    kReport,  ///< a finding, and no output
    kOutput,  ///< a finding, and output under the fallback code
    kAccept,  ///< output under the fallback code
};

struct UncoveredRule {
    Uncovered action = Uncovered::kReport;
    ZetString code = L"?";
};

/// Where along the member a corner notch lies, or where across the face.
enum class NotchCorner {
    kStart,  ///< at the member's start; at the lower edge
    kEnd,    ///< at the member's end; at the upper edge
    kAny,
};

/// A notch at a corner that the machine has a code for.
struct CornerNotch {
    ZetString id;
    long line = 0;  ///< of its table in the job file
    /// Corner coordinates are set from `along` and `across` for each member.
    SCheckNotch definition;
    NotchCorner along = NotchCorner::kStart;
    NotchCorner across = NotchCorner::kStart;
};

/// A whole side of a face.
enum class TrimSide {
    kStart,  ///< where the member starts
    kEnd,
    kLower,  ///< the edge at Y = 0
    kUpper,
};

/// A cut along a whole side of a face that the machine has a code for. Empty lists match any.
struct TrimRule {
    ZetString id;
    std::vector<eHoleFace> faces;
    std::vector<TrimSide> sides;
    ZetString code;
};

/// One hole of a fixed-position pattern.
struct PatternHole {
    double diameter = 0.0;
    ZetString code;
    /// Any of them: between 0 and 1 a part of the length, below 0 from the far end, else from the
    /// start.
    std::vector<double> positions;
    /// With conversions for diameter and position.
    ZetString message = L"hole of diameter %.1f missing at %.1f";
};

/// The holes that members of one fixed length must have.
struct FixedPattern {
    ZetString id;
    long line = 0;  ///< of its table in the job file
    double fixedLength = 0.0;
    bool isMirrorAllowed = false;
    std::vector<PatternHole> holes;
};

/// Tolerances and distances; distances above 0 are mm, below 0 multiples of the hole's diameter,
/// 0: not checked.
struct Tolerances {
    double eps = 0.1;
    double general = 0.5;
    double x = 0.5;
    double y = 0.5;
    double angle = 0.5;
    double edgeDistance = -1.5;
    double distanceFromFace = -1.0;
    double endDistance = -1.5;
};

/// One single part of an assembly.
struct AssemblyPart {
    ZetString mark;
    long count = 1;   ///< pieces on one main part
    long line = 0;    ///< of its mark in the job file
    long column = 0;  ///< the same
};

/// A main part and what is fixed to it.
struct Assembly {
    ZetString mark;
    long line = 0;    ///< of its mark in the job file
    long column = 0;  ///< the same
    std::vector<AssemblyPart> parts;
};

/// What a run makes of what the dialog saved beside the output.
enum class SettingsUse {
    kUse,
    kIgnore,
};

/// Project and delivery data, and how they head the files.
struct ProjectData {
    ZetString caption = L"Project information";        ///< of the dialog
    ZetString fileName;                                ///< what all output files' names begin with
    ZetString settingsFile = L"project-settings.txt";  ///< beside the output
    SettingsUse settings = SettingsUse::kUse;
    ZetString modelName;
    ZetString modelRef;
    ZetString name;
    ZetString number;
    ZetString client;
    ZetString coldRolledCustomer;
    ZetString coldRolledOrderNo;
    ZetString coldRolledOrderDate;  ///< yyyy-MM-dd; "": the date of the job
    ZetString contractor;
    ZetString designer;
    ZetString detailer;
    std::vector<ZetString> comments;
    ZetString revision;
    ZetString revisionDate;  ///< yyyy-MM-dd; "": the date of the job
    ZetString deliveryDate;  ///< yyyy-MM-dd; "": the date of the job
    std::vector<ZetString> deliveryAddress;
    ZetString commentMarker = L"** ";  ///< before each project header line
};

/// What a part is told from others by.
enum class MarkSource {
    kMark,      ///< the header's mark
    kDrawing,   ///< the header's drawing
    kPhase,     ///< the header's phase
    kFileName,  ///< the file's name without its ending
    kPath,      ///< the same with its folders, from that of the job file on
};

inline constexpr MarkSource kMarkSources[] = {MarkSource::kMark,
                                              MarkSource::kDrawing,
                                              MarkSource::kPhase,
                                              MarkSource::kFileName,
                                              MarkSource::kPath};

/// How the texts of NC files are written: their bytes above ASCII.
enum class NcEncoding {
    kAuto,  ///< each text UTF-8 when it is well-formed, else Windows-1252
    kUtf8,
    // clang-format off
    kWindows1250, kWindows1251, kWindows1252, kWindows1253, kWindows1254, kWindows1255,
    kWindows1256, kWindows1257, kWindows1258,
    kIso1, kIso2, kIso3, kIso4, kIso5, kIso6, kIso7, kIso8, kIso9, kIso10, kIso11, kIso13, kIso14,
    kIso15, kIso16,
    // clang-format on
};

/// As a job file names it; "" for none.
const char* NameOf(eHoleFace face);
const char* NameOf(MarkSource source);
/// As a job file and the NC reader name it.
const char* NameOf(NcEncoding encoding);

/// What happens to a run when an NC file cannot take part in it.
enum class WhenNot {
    kRefuse,    ///< nothing is made
    kLeaveOut,  ///< the rest is made, and the file is told
};

/// What warnings of the NC reader do.
enum class NcWarnings {
    kReport,
    kRefuse,  ///< nothing is made
};

/// How NC files are taken.
struct NcInput {
    MarkSource mark = MarkSource::kMark;
    NcEncoding encoding = NcEncoding::kAuto;
    WhenNot unreadable = WhenNot::kRefuse;
    WhenNot unmatched = WhenNot::kRefuse;  ///< no member type takes it
    NcWarnings warnings = NcWarnings::kReport;
};

/// A name or pattern of NC files, and where the job file has it.
struct NcFilePattern {
    std::string text;  ///< relative to the job file's folder, UTF-8
    long line = 0;     ///< from 1
    long column = 0;   ///< from 1
};

/// What a run makes for people to look at, and what its reports tell besides the findings.
struct Reports {
    bool areSourcesTold = false;  ///< the NC file of each member, below its part number
    bool hasPage = true;          ///< a page for people, its name ending with kPageEnding
    bool hasRunDocument = true;   ///< what was made, its name ending with kRunDocumentEnding
};

/// Everything that one job file says.
struct Job {
    std::string file;  ///< as the caller named it, UTF-8
    ZetString name;
    std::vector<NcFilePattern> ncFiles;
    std::string outputFolder = "out";  ///< relative to the job file's folder, UTF-8
    std::optional<CalendarDate> date;  ///< counts as today
    long maximumQuantity = 100000;
    NcInput nc;
    Reports reports;
    ProjectData project;
    Tolerances tolerances;
    std::vector<OutputFile> files;        ///< by position; at least the four of FileRole
    std::vector<MachineFormat> formats;   ///< by position; of files with one of their own
    std::vector<Group> groups;            ///< by position; at least the two of GroupRole
    std::vector<MemberType> memberTypes;  ///< the first that fits is a member's
    Cutting cutting;
    std::vector<Stock> stocks;
    std::vector<Remnant> remnants;  ///< those of the table in `cutting`
    bool areDistancesChecked = true;
    std::vector<HoleRule> holeRules;  ///< the first that fits is a hole's
    UncoveredRule uncoveredHoles;
    std::vector<CornerNotch> cornerNotches;  ///< the first that fits is a notch's
    UncoveredRule uncoveredNotches;
    std::vector<TrimRule> trims;  ///< the first that fits counts
    std::vector<FixedPattern> patterns;
    std::vector<Assembly> assemblies;
    std::array<std::vector<ZetString>, kInfoBlockCount> infoHeaders;  ///< first lines of each block
    std::vector<std::size_t> infoOrder = {kErrorsBlock, kWarningsBlock, kAllMembersBlock};
    bool hasInfoTotals = true;
};

}  // namespace job
