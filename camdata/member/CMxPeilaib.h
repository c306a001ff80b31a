#pragma once

#include "camdata/holes/CHoleAddlInfo.h"
#include "camdata/holes/CHoleCode.h"
#include "camdata/holes/CMxSingleMemValidation.h"
#include "camdata/holes/CViewData.h"
#include "camdata/holes/eHoleStatus.h"
#include "camdata/member/CMxAttPartNoAndQty.h"
#include "camdata/member/eProfRefAxis.h"
#include "camdata/member/eSortOrder.h"
#include "camdata/nesting/CMxNestParts.h"
#include "camdata/nesting/CMxParts.h"
#include "camdata/notches/CNotchAddInfo.h"
#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/geometry/ZetGeomPoint3d.h"
#include "camdata/platform/geometry/ZetGeomVector3d.h"
#include "camdata/platform/host/HostPtr.h"
#include "camdata/platform/host/IEqualPartObject.h"
#include "camdata/platform/host/IStraightBeam.h"
#include "camdata/platform/host/ZetNCContour.h"
#include "camdata/platform/host/ZetNCCreator.h"
#include "camdata/platform/host/ZetNCEntity.h"
#include "camdata/platform/host/ZetNCHoleData.h"
#include "camdata/platform/host/ZetNCStructure.h"
#include "camdata/platform/system/ZetFileAccess.h"
#include "camdata/platform/text/ZetFormat.h"
#include "camdata/platform/text/ZetString.h"
#include "camdata/rules/CMemTypeAndAttrib.h"
#include "camdata/rules/CMemberValidations.h"
#include "camdata/rules/eReportingTypes.h"
#include "camdata/rules/eValidationTypes.h"

#include <utility>

namespace camdata::detail {
struct MemberKeys;
}

/// How far a member has come; the first that applies of 1, 2, 3 and 0.
enum eMemProcessStatus : int {
    eMemProcessClean = 0,         ///< processed, nothing to report
    eMemProcessNotProcessed = 1,  ///< the record type is below 2: not processed as a member
    eMemProcessInvalid = 2,       ///< has errors
    eMemProcessWarnings = 3,      ///< processed with warnings
};

/// The list of the member that AppendMsg appends to.
enum eMsgType : int {
    eMsgGeneral = 0,  ///< general messages
    eMsgError = 1,    ///< errors
    eMsgWarning = 2,  ///< warnings
    eMsgNonStd = 3,   ///< what makes the member non-standard
};

/// A text that the equal-part object of the member's entity knows.
enum eEntProp : int {
    eEntPropPartNumber = 0,      ///< number of the part
    eEntPropAssemblyNumber = 1,  ///< number of its assembly
    eEntPropName = 2,            ///< name
    eEntPropMaterial = 3,        ///< material
    eEntPropFinish = 4,          ///< surface finish
    eEntPropRemark = 5,          ///< remark
};

/// One member (one mark) of a job: its type and limits, its NC data, the hole and notch records
/// made from them, its findings, and its results. Host plug-ins derive from it. mm and degrees.
///
/// A value: copies have texts, records and lists of their own, and share the host's objects. Entity
/// and creator stay the host's; of the equal-part object each record holds one reference.
///
/// The host calls SetMemObjects, SetNCObjects, SetEntTypeAndProfileName and ValidateMember, in this
/// order. What fails in the host raises HostComError.
///
/// Its operations stand, by concern, in
///
/// - CMxPeilaib.cpp: the record, texts and objects of the host, messages by their report type
/// - Gathering.cpp: the hole and notch records of the NC views
/// - HolePostProcessing.cpp: countersinks, duplicates, holes inside slots, pairs, valid holes
/// - NotchPostProcessing.cpp: duplicate and valid notches
/// - Validation.cpp: the checks of counts and length
/// - ErrorReport.cpp: the header lines of the error and the warning block
/// - AssemblyParts.cpp: attached parts, what is left of single parts
/// - MemberNesting.cpp: the parts to nest and the nests
/// - MemberSorting.cpp: which of two members comes first
class CAMDATA_API CMxPeilaib {
  public:
    CMxPeilaib() = default;
    virtual ~CMxPeilaib();
    CMxPeilaib(const CMxPeilaib&) = default;
    CMxPeilaib& operator=(const CMxPeilaib&) = default;
    CMxPeilaib(CMxPeilaib&&) = default;
    CMxPeilaib& operator=(CMxPeilaib&&) = default;

    /// Takes over member type, with its header, and limits. The record type becomes the group ID.
    void SetMemObjects(CMemTypeAndAttrib memType, CMemberValidations validations);
    /// Takes over entity, NC structure, header and equal-part object of a creator. A profile of
    /// code "B" is named as GetProfileNameFromCreator says. Null changes nothing.
    void SetNCObjects(ZetNCCreator* creator);
    void SetEntTypeAndProfileName(ZetNCEntity::NCTypes type, ZetString profileName);

    /// A text of the entity's equal-part object; "" for a value outside the enumeration, and when
    /// there is no entity or no such object.
    ZetString GetEntProp(eEntProp property) const;
    /// The profile name that the entity's structure object knows; "" without entity or object.
    ZetString GetSPName() const;
    /// The host says that the part is the main part of its assembly; false without an equal-part
    /// object.
    bool getIsMainPart() const;
    /// The limits' PartofAssy switch.
    bool getIsPartOfAssy() const { return m_validations.GetPartofAssy(); }

    eMemProcessStatus GetMemStatus() const;
    /// The mark is set, or there is a non-standard message.
    bool GetNonStd() const { return m_nonStd || !m_nonStdMsgs.isEmpty(); }
    /// Takes `n` from the header's quantity, below zero too, and returns what is left. An invalid
    /// member keeps its quantity and returns -n.
    int SubtractQty(int n = 1);
    /// There is a warning, or more than one line in the second warning list.
    bool IsWarningExist() const;

    /// Orders two members, given as pointers to elements of an array of CMxPeilaib*: negative when
    /// the first comes before the second, positive when after, 0 when no key tells them apart. Sets
    /// the current tolerance to m_EPS.
    ///
    /// The keys are the first member's. Numbers that are equal within the tolerance leave the
    /// decision to the next key, so the order is not transitive, and two numbers as far apart as
    /// the tolerance may each come after the other: no algorithm that needs a strict order may sort
    /// by it.
    static int compare(const void* first, const void* second);

    /// Adds a line to the list of `type`. False, with the line dropped, for any other type.
    bool AppendMsg(eMsgType type, ZetString line);

    /// Index of the first hole that makes a pair with the hole at `index`: of status 0 or 3, with a
    /// code that contains the text of `code`, `spacing` away along X, and equal by
    /// CHoleAddlInfo::IsEqual. It gets status eHoleStatusIsPair. -1 when there is none, and without
    /// any hole; otherwise an index outside the holes fails the assertion "isValid( index )". Sets
    /// the current tolerance to m_tol_x, then as IsEqual leaves it.
    long GetPairHole(long index, CHoleCode code, double spacing);

    /// Adds `qty` pieces to the parts to nest.
    void AppendNestQtyLen(long qty, double length, ZetString mark);
    /// Cuts the parts to nest from stock bars, and appends the nests to those made. The parts are
    /// used up then; those of a quantity of 0 or below are dropped.
    ///
    /// Each bar begins with the shortest part and is filled from the shortest up, while its off-cut
    /// is longer than the reserve length. A second bar is cut like it when there are pieces enough:
    /// a nest stands for one bar or two, so their number grows with the quantities. Sets the
    /// current tolerance to m_EPS when there are two parts or more, and reads it as it stands when
    /// there is one. The library does not call it.
    void Nesting();

    long GetQty() const { return m_memType.GetQty(); }
    /// Rounded to three decimals.
    double GetLength() const { return m_memType.GetLength(); }
    ZetString GetMark() const { return m_memType.GetMark(); }
    ZetString GetDwgNo() const { return m_memType.GetHeaderData().drawingNumber; }
    ZetString GetProfileName() const { return m_memType.GetProfileName(); }
    /// The profile height. It and the dimensions below are -0.1 when not available.
    double GetWebWidth() const { return m_memType.GetProfileHeight(); }
    double GetProfileWidth() const { return m_memType.GetProfileWidth(); }
    double GetProfileThick() const { return m_memType.GetProfileThick(); }
    double GetTopFlangeWidth() const { return m_memType.GetTopFlangeWidth(); }
    double GetBotFlangeWidth() const { return m_memType.GetBottomFlangeWidth(); }

    ZetString GetSplOutStr() const { return m_splOutStr; }
    /// No error was found.
    void SetValid(bool valid) { m_valid = valid; }
    bool GetValid() const { return m_valid; }
    /// A mark of the host that attached parts take over.
    void SetHolesMirrored(bool mirrored) { m_holesMirrored = mirrored; }
    bool GetHolesMirrored() const { return m_holesMirrored; }
    void SetNonStd(bool nonStd) { m_nonStd = nonStd; }
    /// The member takes part in nesting.
    void SetNesting(bool nesting) { m_nesting = nesting; }
    bool GetNesting() const { return m_nesting; }
    /// A mark for the host's own use.
    void SetProcessStatus(bool processed) { m_processStatus = processed; }
    bool GetProcessStatus() const { return m_processStatus; }
    /// Output group; -1: none.
    void SetGroupID(long id) { m_groupID = id; }
    long GetGroupID() const { return m_groupID; }

    /// Settings that are kept for the host's member classes and report writers.
    void SetInvalidHolesAsNonStd(bool nonStd) { m_invalidHolesAsNonStd = nonStd; }
    bool GetInvalidHolesAsNonStd() const { return m_invalidHolesAsNonStd; }
    void SetInvalidNotchAsNonStd(bool nonStd) { m_invalidNotchAsNonStd = nonStd; }
    bool GetInvalidNotchAsNonStd() const { return m_invalidNotchAsNonStd; }
    void SetDontMakeInvalidHoles(bool dontMake) { m_dontMakeInvalidHoles = dontMake; }
    bool GetDontMakeInvalidHoles() const { return m_dontMakeInvalidHoles; }
    void SetUseExistingCodeForValid(bool use) { m_useExistingCodeForValid = use; }
    bool GetUseExistingCodeForValid() const { return m_useExistingCodeForValid; }
    void SetHolesAtNonStdReport(bool report) { m_holesAtNonStdReport = report; }
    bool GetHolesAtNonStdReport() const { return m_holesAtNonStdReport; }
    void SetStdHolesReport(bool report) { m_stdHolesReport = report; }
    bool GetStdHolesReport() const { return m_stdHolesReport; }

    /// Counters; gathering leaves them alone, MakeValidNotches counts contours.
    void SetNoOfHoles(long count) { m_noOfHoles = count; }
    long GetNoOfFeatures() const { return m_noOfFeatures; }
    long GetNoOfHoles() const { return m_noOfHoles; }
    long GetNoOfContours() const { return m_noOfContours; }
    long GetNoOfInternalContours() const { return m_noOfInternalContours; }
    long GetNoOfExternalContours() const { return m_noOfExternalContours; }
    void NoOfFeatures_Increment() { ++m_noOfFeatures; }
    void NoOfHoles_Increment() { ++m_noOfHoles; }
    void NoOfContours_Increment() { ++m_noOfContours; }
    void NoOfInternalContours_Increment() { ++m_noOfInternalContours; }
    void NoOfExternalContours_Increment() { ++m_noOfExternalContours; }

    /// The prescription for a member of fixed length.
    void SetSingleMemValid(CMxSingleMemValidation validation) {
        m_singleMemValid = std::move(validation);
    }
    CMxSingleMemValidation GetSingleMemValid() const { return m_singleMemValid; }
    /// The blocks of the additional information in which the member stands: 2 errors, 3 warnings.
    void SetAddInfoArrLoc(ZetArray<long> locations) { m_addInfoArrLoc = std::move(locations); }
    const ZetArray<long>& GetAddInfoArrLoc() const { return m_addInfoArrLoc; }
    /// The keys by which members are ordered, the first decides first.
    void SetSortOrderArr(ZetArray<eSortOrder> keys) { m_sortOrder = std::move(keys); }
    ZetArray<eSortOrder> GetSortOrderArr() const { return m_sortOrder; }

    /// Makes the data that the member's output is written from. The library does not call it.
    virtual void GenerateMemData() = 0;
    /// The member's output as one text. The library does not call it.
    virtual ZetString GetMemOutPutStr() = 0;
    /// Writes the member to the files of its group; called once per member in output order.
    /// MemberFiles.h tells the files apart. The secondary parts are the members that an assembly
    /// may use up. Files and members are only lent for the call.
    virtual void WriteMemOutPut(const ZetArray<ZetFileAccess*>& files,
                                ZetArray<CMxPeilaib*>& secondaryParts) = 0;
    /// Writes the member's errors. The library does not call it.
    virtual void WriteMemErrors(ZetFileAccess* file) = 0;
    /// Writes the member's warnings. The library does not call it.
    virtual void WriteMemWarnings(ZetFileAccess* file) = 0;

    /// Reports a single part: how many of its quantity were too few or are left over, then its
    /// error block to the last of the files and, when it is valid, its warning block to the last
    /// but one. Non-standard messages count as warnings; what was reported before is dropped. A
    /// file that is not open sends its lines to the host's command line. Without files it fails the
    /// assertion "!isEmpty()", with one file "isValid( index )".
    virtual void PrintSinglePartDetail(const ZetArray<ZetFileAccess*>& files);
    /// Checks number of holes, of external contours, of internal contours, and the length, in this
    /// order. A limit of -1 or below allows any number. A member with a fixed length is checked
    /// against that, any other against minimum and maximum; lengths may be off by the tolerance,
    /// and a fixed length within it of 0 is none. Sets the current tolerance to m_tol_x.
    ///
    /// Each finding is filed by its report type, unlike AppendMsg_VT in this: an error marks the
    /// member valid, until its error report is made, and what AppendMsg_VT puts into the second
    /// lists (eReportingSecondWarning and on) is a plain warning.
    virtual void ValidateMember();
    /// Does nothing: for member classes that build output texts of their own.
    virtual void GenerateOutPutStringForHoles();
    /// Does nothing: for member classes that build output texts of their own.
    virtual void GenerateOutPutStringForNotches();

  protected:
    /// The equal-part object of the member's entity, with a reference that the caller owns; null
    /// when there is none.
    IEqualPartObject* GetEqualPartObj() const;
    /// The beam that an entity stands for, with a reference that the caller owns; null when it is
    /// none.
    static IStraightBeam* GetStBeamObj(ZetNCEntity* entity);
    /// End points on a reference axis of a beam, and the direction from start to end, of length 1;
    /// model coordinates. False, changing nothing, without a beam and for one without length.
    static bool GetBeamEndPoints(IStraightBeam* beam,
                                 eProfRefAxis axis,
                                 ZetGeomPoint3d& start,
                                 ZetGeomPoint3d& end,
                                 ZetGeomVector3d& dir);

    /// Files a finding by its report type (eReportingTypes); errors make the member invalid at
    /// once. A derived class finds the type of one of its own checks with
    /// m_validations.GetReportType.
    void AppendMsg_VT(eReportingTypes type, ZetString line);
    /// Files a finding of several lines, in order; they are all dropped, or none.
    void AppendMsg_VT(eReportingTypes type, const ZetArray<ZetString>& lines);
    /// Changes nothing, ever: only a hole for which there is a text would change from status `from`
    /// to status `to`, and there is no text for any.
    void ChangeHolesStatus(eHoleStatus from, eHoleStatus to);

    /// Turns the NC structure into hole and notch records, view by view, and sets duplicates aside.
    /// Appends to the lists that are there. Sets the current tolerance to m_EPS when a view has
    /// holes or contours; what it calls may set it again.
    void GetAndSortHolesNotches();
    /// Gathers the holes of one view. Those set aside in the NC data become duplicate holes at
    /// once; the others are ordered, then countersinks and then duplicates leave. Sets the current
    /// tolerance as MakeDupHoleArr does.
    void SetHoleDataArr(ZetArray<ZetNCHoleData> holes, CViewData view);
    /// Gathers the external or the internal contours of one view, of each the further pieces first.
    /// A notch of a kind of which the limits allow none gets eNotchNotAllowed, unless it is
    /// eNotchNone. Sets the current tolerance as CNotchAddInfo::SetNotchData does.
    void SetNotchDataArr(ZetArray<ZetNCContour> contours, CViewData view);
    /// Orders holes by X, at exactly equal X by Y. Not stable: of holes at one place later ones may
    /// come first, and that decides which of them is the duplicate.
    static void OrderHoles(ZetArray<CHoleAddlInfo>& holes);
    /// Orders notches as OrderHoles does holes. Gathering does not call it.
    static void OrderNotches(ZetArray<CNotchAddInfo>& notches);

    /// Marks the holes of one view that have a countersink, and moves the countersinks to the list
    /// of countersunk holes.
    void MakeCSKHoleArrAndMark(ZetArray<CHoleAddlInfo>& holes);
    /// Marks the first hole at exactly the place of a countersink, with countersink position 0
    /// whatever `position` says. False when there is none that is not marked yet.
    static bool TagThisCSKtoMainHole(ZetArray<CHoleAddlInfo>& holes,
                                     CHoleAddlInfo cskHole,
                                     long position);
    /// Changes the face text of countersunk round holes on the web to "WEBBK". Returns how many.
    static long SetWebFaceForCSKHoles(ZetArray<CHoleAddlInfo>& holes);
    /// Moves holes of one view that stand at the place of an earlier one, touch it or overlap it to
    /// the list of duplicate holes. Sets the current tolerance to m_EPS when it compares two holes.
    void MakeDupHoleArr(ZetArray<CHoleAddlInfo>& holes);
    /// Moves the member's holes that lie inside a slot to the list of duplicate holes, once per
    /// slot that holds them. A hole that has status eHoleStatusInsideSlot already is dropped. Sets
    /// the current tolerance to m_tol_y when it compares a slot with another hole.
    void MakeDupHoleArrForHolesInsideSlot();
    /// Moves notches that equal an earlier one to the list of duplicate notches. Reads the current
    /// tolerance as it stands.
    void MakeDupNotchArr();
    /// Measures the X positions of holes from the other end of the given length.
    static void ChangeHolePosition(ZetArray<CHoleAddlInfo>& holes, double length);
    /// Makes holes that wait for a pair valid, and returns the number of holes of status
    /// eHoleStatusGroup.
    long MakeValidHoles();
    /// Counts notches of status eNotchCornerMatched as internal or external contours; those of any
    /// other status but eNotchNone become eNotchNotAllowed. Returns the sum of both counters, which
    /// are not reset first.
    long MakeValidNotches();

    /// Heads the error block, when there are errors, and the warning block, when there are
    /// warnings, with the lines that tell part number, section and quantity, and enters the blocks
    /// in the locations of the additional information. Non-standard messages become warnings.
    /// Decides whether the member is valid: it is when it has no error. Always true.
    ///
    /// For once per member: it repeats what it appends.
    bool CreateErrWarHeader();

    /// Lists the parts attached to the member's entity, unless parts are listed already. When the
    /// host fails, the list stays empty.
    void GetAttachedPartNos();
    /// The NC header of an attached entity, made in the style of the member's creator. The profile
    /// name of a structure entity is the one that its structure object knows.
    ZetNCHeaderData GetAttachedEntityHeaderData(ZetNCEntity* entity) const;
    /// Takes each attached part, once for each piece of this member's quantity, from the first of
    /// the given members that has its mark, and notes what that member says of it. Files a finding
    /// for parts that are missing. An invalid member gives none of its own.
    ///
    /// A member left with exactly -1 counts as not found: those of the same mark behind it are
    /// taken from, too. Where no member has the mark, the finding names 1 part.
    void CheckAttachedPartsSelection(ZetArray<CMxPeilaib*>& members);

  private:
    friend struct camdata::detail::MemberKeys;

    struct ReportEffect;
    struct ReportEffects;

    /// Files a finding of a check of the member and returns its report type.
    eReportingTypes AppendMsg(eValidationTypes type, ZetString line);
    void ApplyEffect(const ReportEffect& effect, const ZetArray<ZetString>& lines);
    /// Appends a line and keeps it as the one formatted last.
    void AppendLine(ZetArray<ZetString>& list, ZetString line);
    void HeadReport(ZetArray<ZetString>& report, const ZetString& section, long block);
    void DropReported();
    void AppendQtyFinding();
    int TakeFromSelection(CMxAttPartNoAndQty& part, const ZetArray<CMxPeilaib*>& members) const;
    void FileShortfall(int missing, const ZetString& partNo);
    void CheckCounts();
    void CheckLength();
    void CheckLengthRange(double length);
    template <typename T>
    void FileFinding(eValidationTypes type,
                     ZetFormatString<ZetString, T, T> format,
                     T found,
                     T limit);

    // The record. What has no accessors is for derived classes to read and fill.
  protected:
    /// The line formatted last.
    ZetString m_message;
    ZetString m_splOutStr;
    /// For derived classes; the library only copies it.
    ZetArray<ZetString> m_textList1;
    /// For derived classes; the library only copies it.
    ZetArray<ZetString> m_textList2;
    ZetArray<ZetString> m_errors;
    ZetArray<ZetString> m_generalMsgs;
    ZetArray<ZetString> m_warnings;
    /// For derived classes; the library only copies it.
    ZetArray<ZetString> m_textList3;
    /// The formatted error block, header lines first.
    ZetArray<ZetString> m_errorReport;
    /// The formatted warning block, header lines first.
    ZetArray<ZetString> m_warningReport;
    /// Findings of report type eReportingSecondError.
    ZetArray<ZetString> m_secondErrors;
    /// Findings of report types eReportingSecondWarning and eReportingSecondNonStd.
    ZetArray<ZetString> m_secondWarnings;
    ZetArray<ZetString> m_nonStdMsgs;
    ZetArray<CHoleAddlInfo> m_holes;
    ZetArray<CNotchAddInfo> m_notches;
    /// Countersinks taken out of the holes.
    ZetArray<CHoleAddlInfo> m_cskHoles;
    /// Holes set aside in the NC data, duplicates, and holes inside slots.
    ZetArray<CHoleAddlInfo> m_duplicateHoles;
    ZetArray<CNotchAddInfo> m_duplicateNotches;
    CMemTypeAndAttrib m_memType;
    CMemberValidations m_validations;
    ZetNCEntity* m_entity = nullptr;
    ZetNCEntity::NCTypes m_entityType = ZetNCEntity::eNCTypeUnknown;
    HostPtr<IEqualPartObject> m_equalPart;
    ZetNCCreator* m_creator = nullptr;
    ZetNCStructure m_structure;
    /// For derived classes; the library only copies it.
    ZetArray<long> m_values;

  private:
    ZetArray<long> m_addInfoArrLoc;
    long m_groupID = -1;
    ZetArray<eSortOrder> m_sortOrder;
    CMxSingleMemValidation m_singleMemValid;

  protected:
    /// The parts of the assembly whose main part this member is.
    ZetArray<CMxAttPartNoAndQty> m_attachedParts;

  private:
    bool m_holesAtNonStdReport = true;
    bool m_stdHolesReport = false;
    bool m_processStatus = false;
    bool m_valid = true;
    bool m_holesMirrored = false;
    bool m_nonStd = false;
    [[maybe_unused]] bool m_reserved = false;  ///< only copied
    long m_noOfFeatures = 0;
    long m_noOfHoles = 0;
    long m_noOfContours = 0;
    long m_noOfInternalContours = 0;
    long m_noOfExternalContours = 0;
    bool m_dontMakeInvalidHoles = false;
    bool m_useExistingCodeForValid = true;
    bool m_invalidHolesAsNonStd = false;
    bool m_invalidNotchAsNonStd = false;

  protected:
    /// Missing parts of the assembly are filed as non-standard messages, not as errors.
    bool m_shortfallAsWarning = false;

  private:
    bool m_nesting = false;

  protected:
    /// The nests made.
    ZetArray<CMxNestParts> m_nests;
    /// The parts to nest.
    ZetArray<CMxParts> m_partsToNest;
    /// An off-cut that is not longer than this stays: Nesting puts nothing more on the bar; mm.
    double m_reserveLength = 0.0;
};
