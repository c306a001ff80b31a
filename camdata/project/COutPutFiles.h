#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/text/ZetString.h"

#include <utility>

/// One entry of a project's list of output files. A value.
class CAMDATA_API COutPutFiles {
  public:
    COutPutFiles() = default;
    virtual ~COutPutFiles() = default;
    COutPutFiles(const COutPutFiles&) = default;
    COutPutFiles& operator=(const COutPutFiles&) = default;
    COutPutFiles(COutPutFiles&&) = default;
    COutPutFiles& operator=(COutPutFiles&&) = default;

    void SetValues(ZetString suffix, ZetString caption) {
        m_suffixStr = std::move(suffix);
        m_captionStr = std::move(caption);
    }

    /// What the file's name ends with.
    void SetSuffixStr(ZetString suffix) { m_suffixStr = std::move(suffix); }
    ZetString GetSuffixStr() const { return m_suffixStr; }
    /// What the file is called in the project information dialog.
    void SetCaptionStr(ZetString caption) { m_captionStr = std::move(caption); }
    ZetString GetCaptionStr() const { return m_captionStr; }

  private:
    ZetString m_suffixStr;
    ZetString m_captionStr;
};
