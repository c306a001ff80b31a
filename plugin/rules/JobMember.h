#pragma once

#include "job/Job.h"
#include "job/ValidationTypes.h"
#include "plugin/rules/JudgingRules.h"

#include "camdata/member/CMxPeilaib.h"

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace plugin {

/// Why a hole is not among the member's holes.
enum class SetAside {
    kNot,          ///< it is among them
    kMarked,       ///< set aside in the NC data
    kInsideSlot,   ///< lies inside a slot
    kDuplicate,    ///< stands at the place of another hole, touches it or overlaps it
    kCountersink,  ///< the countersink of another hole
};

/// One hole of a member, wherever the member keeps it.
struct MemberHole {
    CHoleAddlInfo record;
    SetAside setAside = SetAside::kNot;
};

/// What a member was found to be, settled with its report.
struct MemberOutcome {
    bool isValid = true;  ///< no error: it is manufactured
    bool hasWarnings = false;
    bool isNonStandard = false;
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
/// 2. the library gathers holes and notches; what it left out is told (SetAsideHoles.cpp)
/// 3. rectangular openings that a hole rule covers become holes (RectangularHoles.cpp)
/// 4. distances of holes to edges and ends (JobMember.cpp)
/// 5. hole codes (HoleCoding.cpp), pairs (HolePairs.cpp), groups (HoleGroups.cpp)
/// 6. corner notches, and what is left of the notches (CornerNotches.cpp)
/// 7. the holes of a fixed pattern (FixedPatterns.cpp)
/// 8. the library's checks of counts and length, then those of quantity and stock (JobMember.cpp)
///
/// A hole or notch that is not manufactured is invalid, or has another status than
/// eHoleStatusGroup, eHoleStatusIsPair, eNotchValid or eNotchCornerMatched.
/// Records and statuses are settled by the library wherever it has an operation for it.
class JobMember : public CMxPeilaib {
  public:
    /// Takes over what the creator, which has run, holds of its member. Rules and type must outlive
    /// the member; creator and entity are needed until MakeOutput is done.
    JobMember(const JudgingRules& rules, const job::MemberType& type, ZetNCCreator& creator);

    void ValidateMember() override;
    /// Settles whether the member is valid, and makes its error and warning blocks. A second call
    /// does nothing.
    void SettleReport();
    /// Lists the attached parts of a main part, makes the machine records, and lets go of all that
    /// they were made from: holes, notches, NC data and creator.
    void MakeOutput();

    /// Every hole of the NC data once. Empty after MakeOutput.
    std::vector<MemberHole> CollectHoles() const;
    /// The holes among the member's holes, with the warnings of their distances.
    const ZetArray<CHoleAddlInfo>& GetHoles() const { return m_holes; }
    const ZetArray<CNotchAddInfo>& GetNotches() const { return m_notches; }
    const ZetArray<CNotchAddInfo>& GetDuplicateNotches() const { return m_duplicateNotches; }
    const ZetArray<ZetString>& GetErrors() const { return m_errors; }
    const ZetArray<ZetString>& GetWarnings() const { return m_warnings; }
    /// The error block: header lines and findings, as WriteMemErrors writes them; "" before
    /// SettleReport, and when there is no error.
    ZetArray<ZetString> GetErrorBlock() const;
    ZetArray<ZetString> GetWarningBlock() const;

    /// Settled with the report; what a single part is told later about its quantity does not enter.
    const MemberOutcome& GetOutcome() const { return m_outcome; }
    /// A part of an assembly, but not the main part. Its group is kSecondaryGroup.
    bool IsSecondaryPart() const { return getIsPartOfAssy() && !getIsMainPart(); }
    bool IsMainPart() const { return getIsPartOfAssy() && getIsMainPart(); }
    /// Position in Job::groups of the group that it is written with.
    std::size_t GetGroupPosition() const;

    /// The library's nests of these parts, with the reserve of the member's group.
    ZetArray<CMxNestParts> MakeNests(ZetArray<CMxParts> parts);
    const ZetString& GetMaterial() const { return m_material; }
    /// kg; 0: not known.
    double GetWeightPerMetre() const { return m_weightPerMetre; }

    void GenerateOutPutStringForHoles() override;
    void GenerateOutPutStringForNotches() override;
    void GenerateMemData() override;
    /// The member's machine records, each with its line end.
    ZetString GetMemOutPutStr() override;
    /// Writes the records of a valid member to every file of its group, and its blocks to the error
    /// and the warning file. A main part takes its attached parts first.
    void WriteMemOutPut(const ZetArray<ZetFileAccess*>& files,
                        ZetArray<CMxPeilaib*>& secondaryParts) override;
    void WriteMemErrors(ZetFileAccess* file) override;
    void WriteMemWarnings(ZetFileAccess* file) override;

  private:
    ZetString m_material;
    double m_weightPerMetre = 0.0;

    /// Tells one hole of the NC data from another.
    using HoleKey = std::tuple<long, eHoleFace, double, double, double>;
    /// Face and position.
    using HolePlace = std::tuple<eHoleFace, double, double>;

    const job::Job& GetJob() const { return m_rules.GetJob(); }
    const job::Group& GetGroup() const { return GetJob().groups[GetGroupPosition()]; }
    /// The rule that a hole falls under; null: none.
    const HoleRuleMatcher::Entry* EntryOfHole(long index) const {
        return m_entryOfHole[static_cast<std::size_t>(index)];
    }

    eReportingTypes ReportTypeOf(job::ValidationType type) const;
    void FileFinding(job::ValidationType type, const ZetString& text);
    void FileHole(job::ValidationType type, const wchar_t* what, const CHoleAddlInfo& hole);
    void FileNotch(job::ValidationType type, const wchar_t* what, CNotchAddInfo notch);

    void FileSetAside();
    void FindHolesInsideSlots();
    SetAside WhySetAside(const CHoleAddlInfo& hole) const;
    static HoleKey KeyOf(const CHoleAddlInfo& hole);

    void TakeRectangularHoles();

    void CheckDistances();

    void CodeHoles();
    static void CodeHole(CHoleAddlInfo& hole, const HoleRuleMatcher::Entry& entry);
    void HandleUncoveredHole(CHoleAddlInfo& hole);
    void RefuseHole(job::ValidationType type, const wchar_t* what, CHoleAddlInfo& hole);

    void FindPairs();
    void FindPairOf(long index, const HoleRuleMatcher::Entry& entry);

    void FindGroups();
    std::vector<long> GroupCandidates() const;
    bool IsSameColumn(long a, long b) const;
    void FormGroup(const std::vector<long>& column);
    static void PutIntoGroup(CHoleAddlInfo& hole, const job::GroupRule& group);
    void LeaveAlone(CHoleAddlInfo& hole, const job::GroupRule& group);

    void MatchCornerNotches();
    void MatchCornerNotch(CNotchAddInfo& notch) const;
    void SettleNotches();
    void FileNotches(eNotchStatus status, const wchar_t* what);
    void CodeUncoveredNotches(eNotchStatus status);
    void CountContours();

    void CheckFixedPattern();
    CMxSingleMemValidation LookFor(CMxSingleMemValidation prescription) const;
    bool TakeHoleOf(const CMxHoles& expected, std::vector<char>& isTaken) const;
    static bool IsExpectedHole(const CHoleAddlInfo& hole, const CMxHoles& expected, double x);

    void CheckQuantity();
    void CheckStockLength();

    std::map<HolePlace, const CHoleAddlInfo*> SinksByPlace() const;
    static HolePlace PlaceOf(const CHoleAddlInfo& hole);
    void WriteRecords(ZetFileAccess* file) const;
    void ReleaseSources();

    const JudgingRules& m_rules;
    const job::MemberType& m_type;
    /// By hole; null: no rule. Only while the member is validated.
    std::vector<const HoleRuleMatcher::Entry*> m_entryOfHole;
    std::set<HoleKey> m_insideSlots;  ///< those of the duplicate holes
    MemberOutcome m_outcome;
    bool m_isSettled = false;
    /// UTF-8: of many members this is most of what is kept.
    std::string m_records;
};

}  // namespace plugin
