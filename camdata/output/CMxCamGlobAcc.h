#pragma once

#include "camdata/output/CMxAddlInfo.h"
#include "camdata/output/CMxFileGroups.h"
#include "camdata/output/CMxGroups.h"
#include "camdata/output/CMxPeilaibArr.h"
#include "camdata/output/eHanding.h"
#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/host/ZetNCProjectData.h"
#include "camdata/platform/system/ZetFileAccess.h"
#include "camdata/platform/text/ZetString.h"
#include "camdata/util/FileFault.h"

#include <memory>
#include <utility>

class CMxPeilaib;
class CProjectInformation;

/// One output run: takes its settings, its file groups and its members, files each member under its
/// member group, and writes the files.
///
/// A run: settings; appendGroups and appendFileGroups; SetAddInfo; Append for each member;
/// WriteOutPut.
///
/// Members stay the host's and must outlive the run. A copy has settings, tables and count of its
/// own and shares the rest: the project information, the files that are held, and the member lists
/// that were there when it was made (a member that one files in such a list, the other writes too).
/// What is shared ends with its last owner.
///
/// Its operations stand in CMxCamGlobAcc.cpp: settings, tables, the filing of members; and in
/// OutputWriting.cpp: all that opens and writes files.
class CAMDATA_API CMxCamGlobAcc {
  public:
    CMxCamGlobAcc() = default;
    /// While WriteOutPut writes, the assertion "!isWriting()" fails, and the program ends.
    virtual ~CMxCamGlobAcc();
    CMxCamGlobAcc(const CMxCamGlobAcc&) = default;
    /// While WriteOutPut of either writes what would be replaced or taken, the assertion
    /// "!isWriting()" fails, with nothing changed.
    CMxCamGlobAcc& operator=(const CMxCamGlobAcc& other);
    CMxCamGlobAcc(CMxCamGlobAcc&& other);
    CMxCamGlobAcc& operator=(CMxCamGlobAcc&& other);

    /// Sets prefix, folder and full name. Always true.
    bool SetManuFacturerDetails(ZetString prefix, ZetString dirName, ZetString fullName);
    /// Sets what GetAnyName reads.
    void SetProjectData(ZetNCProjectData data) { m_projectData = std::move(data); }
    /// Sets the blocks of the additional information and their order.
    void SetAddInfo(CMxAddlInfo info) { m_addInfo = std::move(info); }
    /// Sets the group table, and for each group ID of a member the index of its group in that
    /// table. Both arrays are taken and left empty. While WriteOutPut writes, the assertion
    /// "!isWriting()" fails, with nothing changed.
    void appendGroups(ZetArray<int>& groupIndexMap, ZetArray<CMxGroups>& groups);
    void appendGroups(ZetArray<int>&& groupIndexMap, ZetArray<CMxGroups>&& groups);
    /// Sets the file groups. The array is taken and left empty. While WriteOutPut writes, the
    /// assertion "!isWriting()" fails, with nothing changed: members hold the files.
    void appendFileGroups(ZetArray<CMxFileGroups>& fileGroups);
    void appendFileGroups(ZetArray<CMxFileGroups>&& fileGroups);
    /// Sets all tolerances and distance limits of CMxGeom, but not the current tolerance.
    static void SetGeomEPSs(double eps,
                            double generalTol,
                            double xTol,
                            double yTol,
                            double angleTol,
                            double minEdgeDist,
                            double minEdgeDistFromFace,
                            double minEndDist);
    /// Does nothing: there are no named defaults. Always false.
    static bool SetGeomEPSsFromDefault(const ZetString& name);
    /// Sets the product version to what the host's settings say under "CurrentMxVersion",
    /// "[Unknown]" when they say nothing.
    void SetMxProductVersion();
    /// Sets the library version to `version`, the base library version to the file version of this
    /// library, and the product version to the first four characters of that.
    void SetDllVer(ZetString version);

    /// Files a member under the group of its group ID, gives it that group's sort order, and counts
    /// it. A part of an assembly that is not its main part goes to the second group of the table,
    /// whatever its group ID. Members of groups with one member group ID share a list, which keeps
    /// the first one's group; equal members are not merged. Always true.
    ///
    /// No member fails the assertion "member != nullptr", a group ID outside the index map, and an
    /// index outside the group table, the assertion "isValid( index )"; while WriteOutPut writes
    /// the lists of this accumulator, or the member's list of another that shares it,
    /// "!isWriting()" fails. Nothing has changed then.
    bool Append(CMxPeilaib* member);
    /// Orders the lists by member group ID, and the members of each by CMxPeilaib::compare; those
    /// that compare equal keep their order. Sets the current tolerance to m_EPS when a list has two
    /// members or more. While WriteOutPut writes one of them, the assertion "!isWriting()" fails.
    void SortPeilaibArr();

    /// Writes the run: opens the files of all file groups, writes the members group by group,
    /// reports what is left of secondary parts of assemblies, writes the additional information and
    /// closes the files.
    ///
    /// A member gets the files of its group (null for a file group that makes none), then those of
    /// the file groups at 3 and 2 (never null). A file that could not be opened is handed out as it
    /// is, not open. The first file is the group's main file: there its header lines go before its
    /// members. A section in which no member wrote to the main file is overwritten from its
    /// beginning by one line of 100 blanks, and the next section begins behind that line.
    ///
    /// When nesting is on for the group, its last member collects quantity, length and mark of the
    /// valid ones for CMxPeilaib::Nesting.
    ///
    /// Sorts the members as SortPeilaibArr. Fewer than four file groups, a member group ID outside
    /// the group table, a file group ID outside the file groups, and additional information without
    /// any block fail the assertion "isValid( index )". Then, and when a member raises an error,
    /// the files are closed and the additional information is as before: the next WriteOutPut
    /// begins anew. What members were given stays theirs, the entries to nest among it.
    ///
    /// When a member that is being written calls WriteOutPut, of this accumulator or of a copy with
    /// a list in common, or assigns to this accumulator, the assertion "!isWriting()" fails before
    /// anything is touched.
    void WriteOutPut();
    /// Writes the additional information to the file of the file group at 1, at its write position;
    /// opens the file anew when it was closed. Nothing is written when that file group makes no
    /// file or cannot open it. Without a file group at 1 the assertion "isValid( index )" fails.
    /// Always false.
    bool WriteAddInfo();
    /// Adds the link file name of each file group to `names`, "" too. The ID array is emptied. An
    /// ID outside the file groups fails the assertion "isValid( index )".
    void LinkFiles(ZetArray<ZetString>& names, ZetArray<int>& fileGroupIDs) const;
    void LinkFiles(ZetArray<ZetString>& names, ZetArray<int>&& fileGroupIDs) const;
    /// Every file that could not be opened, written or closed since the last WriteOutPut began,
    /// with its first fault.
    ZetArray<FileFault> GetFileFaults() const;

    /// A text of the project data, filled up with blanks to at least `width` characters; "" for a
    /// value outside the enumeration.
    ZetString GetAnyName(ZetNCProjectData::ID id, long width) const;

    /// Takes over an object made with `new`, which must not belong to another owner, and ends the
    /// one that it replaces. Null: none.
    void SetProjectInfo(CProjectInformation* info);
    /// Lent; null: none.
    CProjectInformation* GetProjectInfo() const { return m_projectInfo.get(); }
    /// Shows the dialog of the project information; nothing happens without one.
    void showProjInfoUID();

    /// What the names of the run's files begin with.
    void SetPrefix(ZetString prefix) { m_prefix = std::move(prefix); }
    ZetString GetPrefix() const { return m_prefix; }
    /// Output folder.
    void SetDirName(ZetString name) { m_dirName = std::move(name); }
    ZetString GetDirName() const { return m_dirName; }
    void SetFullName(ZetString name) { m_fullName = std::move(name); }
    ZetString GetFullName() const { return m_fullName; }
    /// Settings that are kept for the host; the library does not read them. mm.
    void SetMinEdgeDist(double dist) { m_minEdgeDist = dist; }
    double GetMinEdgeDist() const { return m_minEdgeDist; }
    void SetMinGaugeLine(double dist) { m_minGaugeLine = dist; }
    double GetMinGaugeLine() const { return m_minGaugeLine; }
    void SetHanding(eHanding handing) { m_handing = handing; }
    eHanding GetHanding() const { return m_handing; }
    /// The user has cancelled the run. Only kept: the host stops.
    void SetIsCancelled(bool cancelled) { m_isCancelled = cancelled; }
    bool GetIsCancelled() const { return m_isCancelled; }

    /// "" until SetMxProductVersion or SetDllVer; the later one counts.
    ZetString GetMxProductVersion() const { return m_productVersion; }
    /// What SetDllVer was given.
    ZetString GetCamDllVersion() const { return m_libraryVersion; }
    /// "" until SetDllVer.
    ZetString GetBaseDllVersion() const { return m_baseLibraryVersion; }
    /// Members appended so far.
    long GetCount() const { return m_count; }

  private:
    CMxPeilaibArr& ListOf(const CMxGroups& group);
    ZetFileAccess* OpenFile(long fileGroup, ZetFileAccess* otherwise);
    void OpenAllFiles();
    ZetArray<ZetFileAccess*> WriteList(CMxPeilaibArr& list,
                                       const ZetArray<ZetFileAccess*>& fixedFiles,
                                       ZetArray<CMxPeilaib*>& secondaryParts);
    ZetArray<ZetFileAccess*> OpenFilesOf(const CMxGroups& group,
                                         const ZetArray<ZetFileAccess*>& fixedFiles);
    ZetArray<CMxPeilaib*> SecondaryParts() const;

    ZetString m_prefix;
    ZetString m_dirName;
    ZetString m_fullName;
    double m_minEdgeDist = 0.0;
    double m_minGaugeLine = 0.0;
    eHanding m_handing = eHandingNone;
    ZetNCProjectData m_projectData;
    CMxAddlInfo m_addInfo;
    /// One per member group ID, each with at least one member.
    ZetArray<std::shared_ptr<CMxPeilaibArr>> m_memberLists;
    ZetString m_productVersion;
    ZetString m_libraryVersion;
    long m_count = 0;
    bool m_isCancelled = false;
    ZetArray<int> m_groupIndexMap;
    ZetArray<CMxGroups> m_groups;
    ZetArray<CMxFileGroups> m_fileGroups;
    std::shared_ptr<CProjectInformation> m_projectInfo;
    ZetString m_baseLibraryVersion;
};
