#include "camdata/output/CMxFileGroups.h"

#include "camdata/util/CMxUtil.h"

void CMxFileGroups::setValues(long fileGroupID,
                              ZetString fileName,
                              ZetString fileNameForLink,
                              ZetArray<ZetString>& headerLines,
                              bool hostFlag,
                              bool createFilePointer) {
    setValues(fileGroupID,
              std::move(fileName),
              std::move(fileNameForLink),
              std::move(headerLines),
              hostFlag,
              createFilePointer);
}

void CMxFileGroups::setValues(long fileGroupID,
                              ZetString fileName,
                              ZetString fileNameForLink,
                              ZetArray<ZetString>&& headerLines,
                              bool hostFlag,
                              bool createFilePointer) {
    m_fileGroupID = fileGroupID;
    m_fileName = std::move(fileName);
    m_fileNameForLink = std::move(fileNameForLink);
    m_headerLines = std::exchange(headerLines, {});
    m_hostFlag = hostFlag;
    m_createFilePointer = createFilePointer;
}

bool CMxFileGroups::GetFileManager(ZetFileAccess*& file) {
    if (!m_createFilePointer)
        return false;
    if (!HoldsOpenFile()) {
        if (m_fileName.isEmpty())
            return false;
        OpenFile();
    }
    file = m_files.last().get();
    return true;
}

void CMxFileGroups::closeFile() {
    if (HoldsOpenFile())
        m_files.last()->Close();
}

void CMxFileGroups::AppendFileFaults(ZetArray<FileFault>& faults) const {
    for (const auto& file : m_files) {
        const auto& fault = file->GetFault();
        if (!fault)
            continue;
        const FileFault found = {file->GetName(), fault->operation, fault->systemError};
        if (faults.find(found) < 0)
            faults.append(found);
    }
}

void CMxFileGroups::ForgetClosedFiles() {
    while (m_files.length() > (HoldsOpenFile() ? 1 : 0))
        m_files.removeAt(0);
}

bool CMxFileGroups::HoldsOpenFile() const {
    return !m_files.isEmpty() && m_files.last()->IsOpen();
}

void CMxFileGroups::OpenFile() {
    const auto file = std::make_shared<ZetFileAccess>();
    file->Open(m_fileName, L"w", ZetFileAccess::kEncodingUtf8);
    m_files.append(file);
    CMxUtil::AsArrStrPrint(m_headerLines, file.get());
}
