#include "plugin/formats/MachineWords.h"
#include "plugin/rules/JobMember.h"

#include <algorithm>
#include <utility>

// A member in the formats of its group's files. What a format cannot express is a finding, and no
// file of any format has that operation: they all make the same member.

namespace plugin {

namespace {

ZetString Describe(const MachineOperation& operation) {
    const auto word = [](Words words, int position) {
        return ZetString(words[static_cast<std::size_t>(position)]);
    };
    const ZetString kind = word(kOperationWords, static_cast<int>(operation.kind));
    if (operation.kind == MachineOperationKind::kMitre)
        return kind + L" at the " + word(kEndWords, operation.end);
    return ZetString::format(L"%s on %s at (X:%.1f, Y:%.1f)",
                             kind,
                             word(kFaceWords, operation.face),
                             operation.x,
                             operation.y);
}

}  // namespace

const FormattedMember* JobMember::GetFormatted(std::size_t format) const {
    const auto at = m_formatted.find(format);
    return at == m_formatted.end() ? nullptr : &at->second;
}

std::set<std::size_t> JobMember::FormatsOfGroup() const {
    std::set<std::size_t> formats;
    for (const std::size_t file : GetGroup().files)
        if (GetJob().files[file].format)
            formats.insert(*GetJob().files[file].format);
    return formats;
}

void JobMember::WriteFormats() {
    const std::set<std::size_t> formats = FormatsOfGroup();
    if (formats.empty())
        return;
    MakeMachineMember();
    MakeOperations();
    // What is taken out for one is taken out for all.
    const auto write = [&](std::size_t format) { return WriteFormat(format); };
    while (!std::all_of(formats.begin(), formats.end(), write)) {
    }
}

/// False when operations were taken out.
bool JobMember::WriteFormat(std::size_t position) {
    std::vector<FormatFault> faults;
    const FormatWriter& writer = m_rules.GetFormats()[position];
    m_formatted[position] = writer.WriteMember(m_machineMember, m_rules.GetFormatTexts(), faults);
    return !FileFormatFaults(writer.GetFormat().name, faults);
}

/// True when it has taken operations out.
bool JobMember::FileFormatFaults(const ZetString& format, const std::vector<FormatFault>& faults) {
    std::set<std::size_t> taken;
    for (const FormatFault& fault : faults) {
        FileFormatFault(ZetString::format(L"Format \"%s\": %s", format, fault.text),
                        fault.operation);
        if (fault.operation >= 0)
            taken.insert(static_cast<std::size_t>(fault.operation));
    }
    for (auto at = taken.rbegin(); at != taken.rend(); ++at) {
        m_machineMember.operations.erase(m_machineMember.operations.begin() +
                                         static_cast<std::ptrdiff_t>(*at));
        m_operationTags.erase(m_operationTags.begin() + static_cast<std::ptrdiff_t>(*at));
    }
    return !taken.empty();
}

void JobMember::FileFormatFault(ZetString text, long operation) {
    Finding finding{.type = job::kUnwritable, .text = std::move(text), .isRefusal = true};
    if (operation < 0) {
        FileError(std::move(finding));
        return;
    }
    const auto position = static_cast<std::size_t>(operation);
    finding.text += L": " + Describe(m_machineMember.operations[position]);
    finding.feature = FeatureOf(m_operationTags[position]);
    FileFinding(std::move(finding));
}

}  // namespace plugin
