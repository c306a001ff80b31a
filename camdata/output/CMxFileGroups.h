#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/system/ZetFileAccess.h"
#include "camdata/platform/text/ZetString.h"
#include "camdata/util/FileFault.h"

#include <memory>
#include <utility>

/// One output file: its names, the header lines it begins with, and the file itself once it was
/// asked for.
///
/// A value. Copies share the file that is held when the copy is made: what one writes and closes is
/// written and closed for all, and the last one closes it. A file that is opened later belongs to
/// the copy that opened it, and to copies of that one; another copy would open it anew, and empty
/// it. So a file group that was asked for its file must go back to where it was copied from.
class CAMDATA_API CMxFileGroups {
  public:
    /// Sets everything but the file, which stays. The array is taken and left empty. `hostFlag` is
    /// a mark of the host's own that the library only keeps.
    void setValues(long fileGroupID,
                   ZetString fileName,
                   ZetString fileNameForLink,
                   ZetArray<ZetString>& headerLines,
                   bool hostFlag,
                   bool createFilePointer);
    void setValues(long fileGroupID,
                   ZetString fileName,
                   ZetString fileNameForLink,
                   ZetArray<ZetString>&& headerLines,
                   bool hostFlag,
                   bool createFilePointer);

    /// Gives the file that is held and open; opens it when there is none, replacing what has its
    /// name, and writes the header lines.
    ///
    /// False, with `file` as it was, when no file is to be made or the name is empty. True also
    /// when the file could not be opened: `file` is then not open, its header lines go to the
    /// host's command line (CMxUtil::AsArrStrPrint), and the next call tries again. The file is
    /// lent: it lives until the last copy of this file group ends or forgets its closed files.
    bool GetFileManager(ZetFileAccess*& file);
    /// Closes the file, for all copies that share it. It stays held, not open: asked for again, it
    /// is opened anew and emptied. Nothing happens without a file.
    void closeFile();

    /// Adds what went wrong with each file that was opened through this file group to `faults`,
    /// unless it stands there already: the first fault of each. An open file may still fail when it
    /// is closed.
    void AppendFileFaults(ZetArray<FileFault>& faults) const;
    /// Lets go of all files that are not open, with their faults. Pointers to them end here.
    void ForgetClosedFiles();

    /// -1: not set. Only kept: file groups are found by their position.
    void SetFileGroupID(long id) { m_fileGroupID = id; }
    long GetFileGroupID() const { return m_fileGroupID; }
    /// A change does not touch a file that is open.
    void SetFileName(ZetString name) { m_fileName = std::move(name); }
    ZetString GetFileName() const { return m_fileName; }
    /// The name by which the output of others refers to the file.
    void SetFileNameForLink(ZetString name) { m_fileNameForLink = std::move(name); }
    ZetString GetFileNameForLink() const { return m_fileNameForLink; }
    /// A file is to be made.
    void SetCreateFilePointer(bool create) { m_createFilePointer = create; }
    bool GetCreateFilePointer() const { return m_createFilePointer; }

  private:
    bool HoldsOpenFile() const;
    void OpenFile();

    long m_fileGroupID = -1;
    ZetString m_fileName;
    ZetString m_fileNameForLink;
    /// The last one is the file that is held. Those before it are closed; they stay, because they
    /// may be lent out still and know their faults.
    ZetArray<std::shared_ptr<ZetFileAccess>> m_files;
    ZetArray<ZetString> m_headerLines;
    bool m_hostFlag = false;
    bool m_createFilePointer = true;
};
