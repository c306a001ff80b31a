#include "camdata/platform/host/MxSettings.h"

MxSettings& MxSettings::getInstance() {
    static MxSettings instance;
    return instance;
}

std::optional<ZetString> MxSettings::getValue(const ZetString& key) const {
    const auto at = m_values.find(key);
    if (at == m_values.end())
        return std::nullopt;
    return at->second;
}

void MxSettings::setValue(const ZetString& key, const ZetString& value) {
    m_values[key] = value;
}

void MxSettings::removeAll() {
    m_values.clear();
}
