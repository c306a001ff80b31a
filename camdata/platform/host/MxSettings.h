#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/text/ZetString.h"

#include <map>
#include <optional>

/// The settings service of the process: texts by key, which the host fills. Empty at the start.
/// Several threads may read it while none changes it.
class CAMDATA_API MxSettings {
  public:
    static MxSettings& getInstance();

    MxSettings(const MxSettings&) = delete;
    MxSettings& operator=(const MxSettings&) = delete;

    /// The text of a key, nothing when the host set none.
    std::optional<ZetString> getValue(const ZetString& key) const;
    void setValue(const ZetString& key, const ZetString& value);
    void removeAll();

  private:
    MxSettings() = default;

    std::map<ZetString, ZetString> m_values;
};
