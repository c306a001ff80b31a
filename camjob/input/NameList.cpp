#include "camjob/input/NameList.h"

#include "camjob/console/Paths.h"

#include <iostream>
#include <string_view>

namespace camjob {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

NameList::NameList(const std::string& source) : m_lines(&std::cin) {
    if (source == "-")
        return;
    m_file.open(PathFromUtf8(source), std::ios::binary);
    m_lines = &m_file;
}

/// A folder opens and cannot be read.
bool NameList::IsGood() const {
    return (m_lines != &m_file || m_file.is_open()) && !m_lines->bad();
}

std::optional<std::string> NameList::Next() {
    std::string name;
    while (IsGood() && std::getline(*m_lines, name)) {
        if (!m_isBegun && name.starts_with(kByteOrderMark))
            name.erase(0, kByteOrderMark.size());
        m_isBegun = true;
        if (name.ends_with('\r'))
            name.pop_back();
        if (!name.empty())
            return name;
    }
    return std::nullopt;
}

}  // namespace camjob
