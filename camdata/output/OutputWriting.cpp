#include "camdata/member/CMxPeilaib.h"
#include "camdata/output/CMxCamGlobAcc.h"
#include "camdata/output/OutputRun.h"
#include "camdata/util/CMxUtil.h"

#include <algorithm>
#include <cstdint>

namespace {

/// File groups that have a use of their own, whatever groups write to them.
constexpr long kAdditionalInfoFile = 1;
constexpr long kErrorFile = 2;
constexpr long kWarningFile = 3;

/// Member group ID of the list of secondary parts of assemblies.
constexpr long kSecondaryPartsGroup = 1;

/// Blanks of the line that covers the header lines of an empty section.
constexpr int kCoverLength = 100;

/// The section of a group in its main file: header lines, then what its members write. Without a
/// main file there is none.
class Section {
  public:
    /// Writes the header lines at the file's write position.
    Section(ZetFileAccess* mainFile, const ZetArray<ZetString>& headerLines) : m_file(mainFile) {
        if (m_file == nullptr || headerLines.isEmpty())
            return;
        m_start = m_file->GetPosition();
        CMxUtil::AsArrStrPrint(headerLines, m_file);
        m_headerEnd = m_file->GetPosition();
    }

    /// Covers the header lines by a line of blanks when nothing was written after them. The write
    /// position stays behind that line, on purpose: what follows overwrites the rest of a longer
    /// header.
    void CoverUnusedHeader() const {
        const bool isUnused = m_headerEnd >= 0 && m_file->GetPosition() == m_headerEnd;
        if (isUnused && m_file->SetPosition(m_start))
            m_file->WriteFormat(L"%s\n", CMxUtil::GetSpaces(kCoverLength, false));
    }

  private:
    ZetFileAccess* m_file;
    std::int64_t m_start = -1;
    std::int64_t m_headerEnd = -1;  ///< -1: no header in an open file
};

/// Writes the members of a list; the first of the files is the group's main file. With `nesting`
/// the last member collects the parts to nest.
void WriteGroup(const CMxPeilaibArr& list,
                const ZetArray<ZetFileAccess*>& files,
                ZetArray<CMxPeilaib*>& secondaryParts,
                bool nesting) {
    const Section section(files.first(), list.GetGroup().GetHeaderInfos());
    CMxPeilaib* const nestHolder = nesting ? list.GetMembers().last() : nullptr;
    if (nestHolder != nullptr)
        nestHolder->SetNesting(false);
    for (CMxPeilaib* member : list.GetMembers()) {
        member->WriteMemOutPut(files, secondaryParts);
        if (nestHolder != nullptr && member->GetValid())
            nestHolder->AppendNestQtyLen(member->GetQty(), member->GetLength(), member->GetMark());
    }
    section.CoverUnusedHeader();
}

}  // namespace

void CMxCamGlobAcc::WriteOutPut() {
    ZetFileAccess noErrorFile;
    ZetFileAccess noWarningFile;
    camdata::detail::OutputRun::CheckNoneOfAny(m_memberLists);
    camdata::detail::OutputRun run(m_memberLists, m_fileGroups, m_addInfo);
    OpenAllFiles();
    ZetFileAccess* const errorFile = OpenFile(kErrorFile, &noErrorFile);
    ZetFileAccess* const warningFile = OpenFile(kWarningFile, &noWarningFile);
    const ZetArray<ZetFileAccess*> fixedFiles = {warningFile, errorFile};
    camdata::detail::SortLists(m_memberLists);
    ZetArray<CMxPeilaib*> secondaryParts = SecondaryParts();
    // What is left of single parts is told in the files of the last list, whatever list is theirs.
    ZetArray<ZetFileAccess*> filesOfLastList = fixedFiles;
    for (const auto& list : m_memberLists)
        filesOfLastList = WriteList(*list, fixedFiles, secondaryParts);
    for (CMxPeilaib* part : secondaryParts)
        part->PrintSinglePartDetail(filesOfLastList);
    m_addInfo.AppendInfo(secondaryParts);
    WriteAddInfo();
    run.SetDone();
}

/// The open file of a file group, `otherwise` when it makes none.
ZetFileAccess* CMxCamGlobAcc::OpenFile(long fileGroup, ZetFileAccess* otherwise) {
    ZetFileAccess* file = otherwise;
    // Not on a copy: the next one to ask would open the file anew and empty it.
    m_fileGroups[fileGroup].GetFileManager(file);
    return file;
}

/// Opens all files, with their header lines, whether a group writes to them or not.
void CMxCamGlobAcc::OpenAllFiles() {
    for (long i = 0; i < m_fileGroups.length(); ++i) {
        m_fileGroups[i].ForgetClosedFiles();
        OpenFile(i, nullptr);
    }
}

/// Writes the members of a list and adds them to the additional information. Returns the files that
/// they were handed.
ZetArray<ZetFileAccess*> CMxCamGlobAcc::WriteList(CMxPeilaibArr& list,
                                                  const ZetArray<ZetFileAccess*>& fixedFiles,
                                                  ZetArray<CMxPeilaib*>& secondaryParts) {
    // The header lines are those of the list's group, all else is the table's.
    const CMxGroups& group = m_groups[list.GetGroup().GetMemGroupID()];
    ZetArray<ZetFileAccess*> files = OpenFilesOf(group, fixedFiles);
    WriteGroup(list, files, secondaryParts, group.GetNesting());
    m_addInfo.AppendInfo(&list);
    return files;
}

/// The files that members of a group get: the group's own, null for one that is not there, then the
/// fixed ones.
ZetArray<ZetFileAccess*> CMxCamGlobAcc::OpenFilesOf(const CMxGroups& group,
                                                    const ZetArray<ZetFileAccess*>& fixedFiles) {
    ZetArray<ZetFileAccess*> files;
    for (const long fileGroup : group.GetFileGroupIDs())
        files.append(OpenFile(fileGroup, nullptr));
    files.appendAll(fixedFiles);
    return files;
}

/// The members of the list of secondary parts, which can only be one of the first two in order.
ZetArray<CMxPeilaib*> CMxCamGlobAcc::SecondaryParts() const {
    for (long i = 0; i < std::min(m_memberLists.length(), 2L); ++i) {
        if (m_memberLists[i]->GetGroup().GetMemGroupID() == kSecondaryPartsGroup)
            return m_memberLists[i]->GetMembers();
    }
    return {};
}

bool CMxCamGlobAcc::WriteAddInfo() {
    ZetFileAccess* file = OpenFile(kAdditionalInfoFile, nullptr);
    if (file != nullptr && file->IsOpen())
        m_addInfo.WriteAddInfo(file);
    return false;
}

void CMxCamGlobAcc::LinkFiles(ZetArray<ZetString>& names, ZetArray<int>& fileGroupIDs) const {
    LinkFiles(names, std::move(fileGroupIDs));
}

void CMxCamGlobAcc::LinkFiles(ZetArray<ZetString>& names, ZetArray<int>&& fileGroupIDs) const {
    for (const int fileGroup : fileGroupIDs)
        names.append(m_fileGroups[fileGroup].GetFileNameForLink());
    fileGroupIDs.removeAll();
}

ZetArray<FileFault> CMxCamGlobAcc::GetFileFaults() const {
    ZetArray<FileFault> faults;
    for (const CMxFileGroups& fileGroup : m_fileGroups)
        fileGroup.AppendFileFaults(faults);
    return faults;
}
