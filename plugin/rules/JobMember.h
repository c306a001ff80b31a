#pragma once

#include "job/Job.h"
#include "job/ValidationTypes.h"
#include "plugin/formats/FormatWriter.h"
#include "plugin/ledger/Finding.h"
#include "plugin/ledger/Ledger.h"
#include "plugin/rules/BarStock.h"
#include "plugin/rules/FaceOutline.h"
#include "plugin/rules/JudgingRules.h"
#include "plugin/rules/ReachIndex.h"

#include "camdata/member/CMxPeilaib.h"
#include "camdata/member/MemberNesting.h"

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace plugin {

/// One hole of a member, wherever the member keeps it.
struct MemberHole {
    CHoleAddlInfo record;
    SetAside setAside = SetAside::kNot;
};

/// A whole side of a face that is cut off.
struct Trim {
    eHoleFace face;
    job::TrimSide side;
    double at;  ///< X or Y of the new edge
    ZetString code;
    long tag;
};

/// What a member was found to be, settled with its report.
struct MemberOutcome {
    bool isValid = true;  ///< no error
    bool hasWarnings = false;
    bool isNonStandard = false;
    bool hasPieces = true;  ///< quantity and length are above 0

    /// It is manufactured, and has a block in the machine files.
    bool IsMade() const { return isValid && hasPieces; }
};

/// The machine records of a member.
struct MemberRecords {
    std::string text;              ///< UTF-8, a line each: the member, its operations, its end
    std::vector<long> operations;  ///< by operation: the host's tag of the feature it makes
};

/// A member of a job: judged by the job's rules, written as machine records
/// (output/MachineRecordText.h).
///
/// In this order: ValidateMember; SettleReport, unless the member is a part of an assembly;
/// MakeOutput; then the run's Append and WriteOutPut. Each once.
///
/// ValidateMember goes in steps, each in the file named in brackets:
///
/// 1. flange coordinates begin where the member type says (FlangeZero.h)
/// 2. the library gathers holes and notches; what it left out is told (SetAsideHoles.cpp), and what
///    a wall has from its other side (OtherSides.cpp)
/// 3. rectangular openings that a hole rule covers become holes (RectangularHoles.cpp)
/// 4. distances of holes to edges and ends (JobMember.cpp)
/// 5. hole codes (HoleCoding.cpp), pairs (HolePairs.cpp), groups (HoleGroups.cpp)
/// 6. corner notches, and what is left of the notches (CornerNotches.cpp)
/// 7. the holes of a fixed pattern (FixedPatterns.cpp)
/// 8. the library's checks of counts and length, then those of quantity and stock (Limits.cpp)
///
/// A hole or notch that is not manufactured is invalid, or has another status than
/// eHoleStatusGroup, eHoleStatusIsPair, eNotchValid or eNotchCornerMatched.
/// Records and statuses are settled by the library wherever it has an operation for it.
class JobMember : public CMxPeilaib {
  public:
    /// Takes over what the creator, which has run, holds of its member. Rules and type must outlive
    /// the member; creator and entity are needed until MakeOutput is done.
    JobMember(const JudgingRules& rules, const job::MemberType& type, ZetNCCreator& creator);

    /// The NC file, for the blocks; before SettleReport. Without it they do not tell.
    void SetSource(const ZetString& file) { m_source = file; }
    /// How many features the file has besides those of the NC data; before MakeOutput.
    void SetNotedFeatures(long count) { m_notedFeatures = count; }

    void ValidateMember() override;
    /// Settles whether the member is valid, and makes its error and warning blocks. A second call
    /// does nothing.
    void SettleReport();
    /// Tells that a cutting plan has no bar for so many pieces of this valid member. After the
    /// member is written.
    void TellUncut(long pieces);
    /// The member in a format of the job, by its position; null unless a file of its group has it.
    const FormattedMember* GetFormatted(std::size_t format) const;
    /// It is manufactured.
    bool IsMade() const { return GetValid() && m_outcome.hasPieces; }
    /// Lists the attached parts of a main part, makes the machine records, and lets go of all that
    /// they were made from: holes, notches, NC data and creator.
    void MakeOutput();

    /// Every hole of the NC data once. Empty after MakeOutput.
    std::vector<MemberHole> CollectHoles() const;
    /// The holes among the member's holes, with the warnings of their distances.
    const ZetArray<CHoleAddlInfo>& GetHoles() const { return m_holes; }
    const ZetArray<CNotchAddInfo>& GetNotches() const { return m_notches; }
    const ZetArray<CNotchAddInfo>& GetDuplicateNotches() const { return m_duplicateNotches; }
    /// The trims and mitres to be made. Until MakeOutput.
    const std::vector<Trim>& GetTrims() const { return m_judging->trims; }
    const std::vector<ZetNCCut>& GetMitres() const { return m_judging->mitres; }
    /// What was found, in the order in which it was found; also what the job leaves unprinted.
    const std::vector<Finding>& GetFindings() const { return m_findings; }
    std::vector<Finding> TakeFindings() { return std::move(m_findings); }
    /// What somebody should know of a feature, although nothing is wrong with it.
    const std::vector<FeatureNote>& GetNotes() const { return m_notes; }
    std::vector<FeatureNote> TakeNotes() { return std::move(m_notes); }
    /// The features that are not made because others are. Ordered by tag.
    const std::vector<SetAsideFeature>& GetSetAside() const { return m_setAside; }
    std::vector<SetAsideFeature> TakeSetAside() { return std::move(m_setAside); }
    /// What has become of the features of the NC data. Complete after MakeOutput.
    const Ledger& GetLedger() const { return m_ledger; }
    Ledger TakeLedger() { return std::move(m_ledger); }
    const ZetArray<ZetString>& GetErrors() const { return m_errors; }
    const ZetArray<ZetString>& GetWarnings() const { return m_warnings; }
    /// The error block: header lines and findings, as WriteMemErrors writes them; "" before
    /// SettleReport, and when there is no error.
    ZetArray<ZetString> GetErrorBlock() const;
    ZetArray<ZetString> GetWarningBlock() const;

    /// Settled with the report; what is told later of single parts and bars enters as a warning.
    const MemberOutcome& GetOutcome() const { return m_outcome; }
    /// A part of an assembly, but not the main part. Its group is kSecondaryGroup.
    bool IsSecondaryPart() const { return getIsPartOfAssy() && !getIsMainPart(); }
    bool IsMainPart() const { return getIsPartOfAssy() && getIsMainPart(); }
    /// Pieces as ordered, whatever assemblies have used up.
    long GetOrdered() const { return m_ordered; }
    /// Position in Job::groups of the group that it is written with.
    std::size_t GetGroupPosition() const;

    /// The library's nests of these parts, with the reserve of the member's group.
    void MakeNests(ZetArray<CMxParts> parts, const camdata::detail::NestTaker& take) const;
    /// It is cut from bars with others.
    bool IsNested() const { return GetGroup().isNested; }
    /// Whom it is cut from bars with.
    NestedMembers GetNestedMembers() const { return {GetGroup(), GetProfileName(), GetMaterial()}; }
    const ZetString& GetMaterial() const { return m_memType.GetHeaderData().material; }
    /// The name of its profile, lent.
    std::wstring_view SeeProfileName() const {
        return m_memType.GetHeaderData().profileName.view();
    }
    /// kg; 0: not known.
    double GetWeightPerMetre() const { return m_weightPerMetre; }

    void GenerateOutPutStringForHoles() override;
    void GenerateOutPutStringForNotches() override;
    void GenerateMemData() override;
    /// After MakeOutput; once, and not before the member is written.
    MemberRecords TakeRecords() { return std::move(m_records); }
    /// Lets go of what tells which feature each of its operations makes. After MakeOutput.
    void ReleaseOperations() { m_records.operations = std::vector<long>(); }
    /// The member's machine records, each with its line end.
    ZetString GetMemOutPutStr() override;
    /// Writes the records of a valid member to every file of its group, and its blocks to the error
    /// and the warning file. A main part takes its attached parts first.
    void WriteMemOutPut(const ZetArray<ZetFileAccess*>& files,
                        ZetArray<CMxPeilaib*>& secondaryParts) override;
    /// As the library, with the findings and the NC file of the part.
    void PrintSinglePartDetail(const ZetArray<ZetFileAccess*>& files) override;
    void WriteMemErrors(ZetFileAccess* file) override;
    void WriteMemWarnings(ZetFileAccess* file) override;

  protected:
    /// What WriteMemOutPut writes of a valid member.
    virtual std::string_view GetRecordText() const { return m_records.text; }

  private:
    double m_weightPerMetre = 0.0;

    class HoleSettlement;
    /// What a hole has to keep and does not, mm.
    struct ShortDistance {
        double required;
        double found;
    };
    /// In the frame of the piece, mm: along it, from its bottom and from behind.
    struct SectionPlace {
        double x;
        std::array<double, 2> y;
        std::array<double, 2> z;
    };
    struct NotchSum;
    /// Tag, face and position.
    using HolePlace = std::tuple<long, eHoleFace, double, double>;

    const job::Job& GetJob() const { return m_rules.GetJob(); }
    const job::Group& GetGroup() const { return GetJob().groups[GetGroupPosition()]; }
    /// The rule that a hole falls under; null: none.
    const HoleRuleMatcher::Entry* EntryOfHole(long index) const {
        return m_judging->entryOfHole[static_cast<std::size_t>(index)];
    }

    void TellSource(ZetArray<ZetString>& report) const;

    eReportingTypes ReportTypeOf(int type) const {
        return m_type.reports[static_cast<std::size_t>(type)];
    }
    /// Lines of a finding of this type for the files of errors and warnings.
    void Tell(int type, const ZetArray<ZetString>& lines);
    /// Files a finding with its report type, as a line of the member.
    void FileFinding(Finding finding);
    /// Files a finding whose lines stand in the library's lists already, or nowhere.
    void RecordFinding(Finding finding);
    void FileError(Finding finding);
    void FileHole(Finding finding, const CHoleAddlInfo& hole);
    void FileNotch(Finding finding, CNotchAddInfo notch);
    std::optional<Feature> FeatureOf(long tag) const;

    bool IsPlate() const { return m_section == Section::kPlate; }
    bool IsRound() const { return m_section == Section::kRound; }
    bool IsUnrolled(int viewPosition) const;
    bool IsHollow() const;
    bool IsEdgeOfPlate(int viewPosition) const;
    FaceBox FaceOfView(int viewPosition) const;
    FaceBox SteelOfView(int viewPosition) const;
    FaceBox FaceOfPlane(int viewPosition) const;
    const ZetGeomPlane* AskewPlaneAt(int viewPosition) const;
    static FaceBox AlongMember(const ZetGeomPlane& plane,
                               const std::vector<ZetGeomPoint2d>& centres,
                               double radius);
    FaceBox WholeMember() const;
    bool IsFaceUnknown(const FaceBox& outline, int viewPosition) const;
    static eHoleFace FaceAtView(int viewPosition);
    void CheckOutlines();
    void NoteOutlinesThatDiffer();
    long TagOfOutline(int viewPosition) const;
    void CheckOpenings();
    void RefuseContour(job::ValidationType type,
                       const ZetString& fault,
                       const ZetNCContour& contour,
                       int viewPosition);
    bool TakeOutline(const ZetNCContour& outline, const ZetNCView& view, const NotchSum& sum);
    bool CheckOpening(const ZetNCContour& opening, int viewPosition);
    bool TakesPlateApart(const FaceBox& opening, int viewPosition);
    bool CheckOpeningAmongOthers(const ZetNCContour& opening, int viewPosition);
    bool IsBeyond(const std::vector<ZetGeomPoint2d>& corners,
                  int viewPosition,
                  const FaceBox& face);
    ZetString FaultOf(const std::vector<ZetGeomPoint2d>& corners,
                      long tag,
                      const ZetNCView& view,
                      const NotchSum& sum);
    bool FindTrims(const FaceBox& box, long tag, int viewPosition);
    void TakeTrim(Trim trim, double whole);
    static void DropNotches(ZetArray<CNotchAddInfo>& notches, const std::set<long>& tags);

    void SettleSetAsideHoles();
    void SetAsideOtherSides();
    bool HasSinkBeside(const CHoleAddlInfo& hole) const;
    bool IsMadeFromOtherSide(const CHoleAddlInfo& hole, const CHoleAddlInfo& other);
    bool HasHolesOnBothSides() const;
    void OrderByView();
    void FileMarked(const CHoleAddlInfo& hole);
    void ChooseOfMutual(std::vector<CHoleAddlInfo>& open);
    void FileSetAside(const CHoleAddlInfo& hole, SetAside reason, const CHoleAddlInfo& other);
    void AddSetAside(long tag, SetAside reason, long otherTag);
    long ViewOf(const CHoleAddlInfo& hole) const;
    static void DropPlainOutlines(ZetArray<CNotchAddInfo>& notches);
    void SetAsideNotches();

    void PartCountersinks();
    void JoinCountersinks();
    long FindHoleOf(const CHoleAddlInfo& sink,
                    const ZetArray<CHoleAddlInfo>& holes,
                    const ReachIndex& index) const;
    const CHoleAddlInfo* SinkOf(const CHoleAddlInfo& hole) const;
    void RefuseSinkOf(const CHoleAddlInfo& hole, Finding finding);

    void TakeRectangularHoles();

    void CheckDistances();
    std::vector<ShortDistance> ShortDistancesOf(const CHoleAddlInfo& hole) const;
    std::vector<ShortDistance> CheckDistancesOf(CHoleAddlInfo& hole, const FaceOutline* outline);
    void FileDistances(const CHoleAddlInfo& hole,
                       const ZetArray<ZetString>& lines,
                       const std::vector<ShortDistance>& distances);
    void CheckPlaces();
    const FaceOutline* PlateOutline();
    /// A face with holes.
    struct HoleFace {
        int viewPosition;
        FaceBox box;
        const FaceOutline* plate;  ///< null: it is no plate's
    };
    HoleFace FaceOfHoles(int viewPosition);
    FaceBox BoxOfHoles(int viewPosition, const FaceOutline* plate) const;
    std::optional<Finding> OutsideOf(const CHoleAddlInfo& hole, const HoleFace& face) const;
    std::optional<Finding> FaultOfPlace(const CHoleAddlInfo& hole, const HoleFace& face) const;
    bool HasPlaceFault(const CHoleAddlInfo& hole);
    void NoteUnclearPlace(long tag, const FaceBox& face, double minX, double maxX);
    bool IsAtMitre(double minX, double maxX) const;
    bool IsCutAway(const CHoleAddlInfo& hole, int viewPosition) const;
    bool IsCutAway(const std::vector<ZetGeomPoint2d>& opening, int viewPosition) const;
    bool IsCutAway(const ZetGeomPoint2d& place, int viewPosition) const;
    bool IsInOpening(const CHoleAddlInfo& hole, int viewPosition) const;
    bool IsInOpening(const std::vector<ZetGeomPoint2d>& opening, int viewPosition) const;
    /// The views that show a wall; one twice when no other does.
    using WallViews = std::array<int, 2>;
    WallViews FindViewsOfWall(int viewPosition) const;
    WallViews ViewsOfWall(int viewPosition) const {
        const auto view = static_cast<std::size_t>(viewPosition);
        return view < m_judging->viewsOfWall.size() ? m_judging->viewsOfWall[view]
                                                    : WallViews{viewPosition, viewPosition};
    }
    /// Whether the test holds for a view that shows the same wall as another.
    template <typename Test>
    bool AnyViewOfWall(int viewPosition, const Test& test) const {
        const WallViews views = ViewsOfWall(viewPosition);
        return test(views[0]) || (views[1] != views[0] && test(views[1]));
    }
    /// Whether an outline of the wall that a view shows passes the test.
    template <typename Test>
    bool AnyOutline(int viewPosition, const Test& test) const {
        if (m_judging->outlines.empty())
            return false;
        return AnyViewOfWall(viewPosition, [&](int view) {
            const auto at = m_judging->outlines.find(view);
            return at != m_judging->outlines.end() && test(at->second);
        });
    }
    class Openings;
    using OpeningsOfViews = std::map<int, Openings>;
    /// Whether an opening of that wall which may reach to `x` passes the test.
    template <typename Test>
    bool AnyOpening(const OpeningsOfViews& openings,
                    int viewPosition,
                    double x,
                    const Test& test) const {
        if (openings.empty())
            return false;
        return AnyViewOfWall(viewPosition, [&](int view) {
            const auto at = openings.find(view);
            return at != openings.end() && at->second.Any(x, test);
        });
    }
    bool IsCutAwayFromEdge(double minX, double maxX, int viewPosition) const;
    static ZetGeomPoint2d PlaceInView(const CHoleAddlInfo& hole, int viewPosition);
    SectionPlace SectionPlaceOf(const ZetGeomPoint2d& point, int viewPosition) const;
    double DepthOfSection() const;
    bool IsOutsideSection(const ZetGeomPoint2d& point, int viewPosition) const;
    bool IsBeyondMitre(const ZetGeomPoint2d& centre, int viewPosition, double reach) const;
    void SeePlanes();
    bool FacesEnd(const CViewData& flange) const;
    void RefusePlanes();
    void CheckPlanes();

    void CodeHoles();
    static void CodeHole(CHoleAddlInfo& hole, const HoleRuleMatcher::Entry& entry);
    Finding UncoveredFinding(const CHoleAddlInfo& hole) const;
    void HandleUncoveredHole(CHoleAddlInfo& hole);
    void RefuseHole(Finding finding, CHoleAddlInfo& hole);

    void FindPairs();
    Finding MissingPairOf(long index, const job::HoleRule& rule) const;
    void FindPairOf(long index, const HoleRuleMatcher::Entry& entry);

    void FindGroups();
    std::vector<long> GroupCandidates() const;
    bool IsSameColumn(long a, long b) const;
    void FormGroup(const std::vector<long>& column);
    static void PutIntoGroup(CHoleAddlInfo& hole, const job::GroupRule& group);
    void LeaveAlone(CHoleAddlInfo& hole, const job::HoleRule& rule, std::size_t holesOfColumn);

    void MatchCornerNotches();
    void MatchCornerNotch(CNotchAddInfo& notch) const;
    void SettleNotches();
    void FileNotAllowedNotches();
    void FileUncoveredNotches();
    void CodeUncoveredNotches(eNotchStatus status);
    void CountContours();

    void CheckFixedPattern();
    Finding MissingHole(CMxHoles& expected, double fixedLength) const;
    CMxSingleMemValidation LookFor(CMxSingleMemValidation prescription) const;
    bool TakeHoleOf(const CMxHoles& expected, std::vector<char>& isTaken) const;
    static bool IsExpectedHole(const CHoleAddlInfo& hole, const CMxHoles& expected, double x);

    const job::Assembly* FindAssembly() const;
    void FileParts(Finding finding);
    void CheckAttachedParts(ZetArray<CMxPeilaib*>& members);
    void HeadReports();

    void CheckLimits();
    void CheckLimit(Finding finding);
    void CheckQuantity();
    void CheckStockLength();

    static HolePlace PlaceOf(const CHoleAddlInfo& hole);
    void CheckCuts();
    double RunOutOf(int cutFace) const;
    void DropMitresThatRunOut();
    void JoinEqualMitres();
    void MakeTrims();
    void MakeMitres();
    CViewData ViewDataOf(int viewPosition) const;
    bool HasNcFile() const;
    bool IsToBeMade() const;
    void NoteMarks();
    void NoteMarksOutside();
    const wchar_t* FaultOfMark(const std::vector<ZetGeomPoint2d>& points, int viewPosition);
    void MakeMarks();
    void MakeMachineMember();
    std::string MakeRecords() const;
    void MakeOperations();
    /// One more, to be described.
    MachineOperation& AddOperation(long tag);
    void ClaimOperations();
    std::array<std::optional<double>, eHoleFaceNone + 1> UpperEdges() const;
    std::optional<double> FlangeEnd(double width, const job::FlangeZero& zero) const;
    void WriteFormats();
    std::set<std::size_t> FormatsOfGroup() const;
    bool WriteFormat(std::size_t position);
    bool IsSilent(std::size_t operation) const;
    void NoteSilent();
    bool FileFormatFaults(const job::MachineFormat& format, const std::vector<FormatFault>& faults);
    void FileFormatFault(const job::MachineFormat& format, const FormatFault& fault);
    void WriteRecords(ZetFileAccess* file) const;
    void ReleaseSources();
    void TellUnmade(ZetArray<ZetString>& block) const;

    /// Of a profile code, as far as it is judged in a way of its own.
    enum class Section { kPlate, kRound, kOther };
    static Section SectionOf(const ZetString& profileCode);

    /// A view in a plane of its own.
    struct PlaneView {
        CViewData data;
        ZetGeomPlane plane;
        bool isRefused = false;  ///< nothing is made on it
    };
    /// The openings of a face.
    class Openings {
      public:
        void Add(const std::vector<ZetGeomPoint2d>& corners) {
            const FaceBox box = BoxOf(corners);
            const double reach = (box.maxX - box.minX) * 0.5;
            m_index.Add(static_cast<long>(m_outlines.size()), box.minX + reach, reach);
            m_outlines.emplace_back(corners);
        }
        /// Whether one that may reach to `x` passes the test.
        template <typename Test>
        bool Any(double x, const Test& test) const {
            return m_index.FindNear(x, 0.0, [&](long index) {
                return test(m_outlines[static_cast<std::size_t>(index)]);
            });
        }

      private:
        std::vector<FaceOutline> m_outlines;
        ReachIndex m_index;
    };
    /// What a member knows only until MakeOutput is done.
    struct Judging {
        std::vector<const HoleRuleMatcher::Entry*> entryOfHole;  ///< by hole; null: no rule
        std::optional<FaceOutline> plate;                        ///< its outline, or its box
        std::array<WallViews, 4> viewsOfWall{};                  ///< by standard view
        std::map<int, PlaneView> planes;                         ///< by view position
        std::map<int, FaceOutline> outlines;       ///< by view position; those that operations tell
        OpeningsOfViews openings;                  ///< by view position; those that are made
        OpeningsOfViews circles;                   ///< by view position; those that are holes
        std::vector<SetAside> reasons;             ///< by duplicate hole
        std::map<HolePlace, CHoleAddlInfo> sinks;  ///< by the place of their holes
        std::vector<Trim> trims;
        std::vector<ZetNCCut> mitres;
        MachineMember machineMember;      ///< what is made; its operations
        std::vector<long> operationTags;  ///< by operation
        bool hasOperations = false;
    };

    const JudgingRules& m_rules;
    const job::MemberType& m_type;
    std::unique_ptr<Judging> m_judging = std::make_unique<Judging>();
    Section m_section = Section::kOther;
    MemberOutcome m_outcome;
    bool m_isSettled = false;
    long m_ordered = 0;
    /// By position in Job::formats. Few or none: a list takes half of what a map does.
    std::vector<std::pair<std::size_t, FormattedMember>> m_formatted;
    std::vector<Finding> m_findings;
    std::vector<SetAsideFeature> m_setAside;
    std::vector<FeatureNote> m_notes;
    Ledger m_ledger;
    ZetString m_source;
    long m_notedFeatures = 0;
    long m_unmadeFeatures = 0;  ///< of a member that is not made
    /// UTF-8: of many members this is most of what is kept.
    MemberRecords m_records;
};

}  // namespace plugin
