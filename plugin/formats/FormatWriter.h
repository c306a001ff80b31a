#pragma once

#include "plugin/formats/FormatValues.h"
#include "plugin/formats/ValueText.h"

#include <cstddef>
#include <string>
#include <vector>

namespace plugin {

/// Why something of a member, or of a file, cannot be written in a format.
struct FormatFault : ValueFault {
    long operation = -1;  ///< position in the member's; below 0: the member or the file itself
};

/// A member as it stands in a file.
struct FormattedMember {
    std::string text;  ///< in the encoding of the format
    long lines = 0;
    long quantity = 0;
    std::vector<char> isSilent;  ///< by operation: the format says nothing for it
};

/// The members of a group, in their order.
struct FormattedGroup {
    ZetString id;
    ZetString section;  ///< "": all of the group
    std::vector<ZetString> header;
    std::vector<const FormattedMember*> members;
};

/// Writes members and files in the format of one machine.
class FormatWriter {
  public:
    /// The format must outlive it.
    explicit FormatWriter(const job::MachineFormat& format) : m_format(format), m_values(format) {}

    const job::MachineFormat& GetFormat() const { return m_format; }

    /// The text of a member is of use only without faults, of which all are told.
    FormattedMember WriteMember(const MachineMember& member,
                                const FormatTexts& texts,
                                std::vector<FormatFault>& faults) const;
    /// Of groups without members nothing is written. `header` are the file's own lines.
    std::string WriteFile(const std::vector<FormattedGroup>& groups,
                          const std::vector<ZetString>& header,
                          const FormatTexts& texts,
                          std::vector<FormatFault>& faults) const;

  private:
    class MemberText;
    class FileText;

    const job::MachineFormat& m_format;
    FormatValues m_values;
};

}  // namespace plugin
