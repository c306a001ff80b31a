#include "plugin/formats/MachineWords.h"
#include "plugin/rules/JobMember.h"

#include <algorithm>
#include <utility>

// A member in the formats of its group's files. What a format cannot express is a finding, and no
// file of any format has that operation: they all make the same member.

namespace plugin {

namespace {

constexpr const wchar_t* kSilentFormat =
    L"not for this machine: %d %s; the format of each file has a line without text for it";

ZetString WordOf(Words words, int position) {
    return ZetString(words[static_cast<std::size_t>(position)]);
}

ZetString Describe(const MachineOperation& operation) {
    const ZetString kind = WordOf(kOperationWords, static_cast<int>(operation.kind));
    const ZetString face = WordOf(kFaceWords, operation.face);
    if (operation.kind == MachineOperationKind::kMitre)
        return kind + L" at the " + WordOf(kEndWords, operation.end);
    if (operation.kind == MachineOperationKind::kTrim)
        return ZetString::format(L"%s of the %s side of %s at %.1f",
                                 kind,
                                 WordOf(kSideWords, operation.side),
                                 face,
                                 operation.at);
    return ZetString::format(L"%s on %s at (X:%.1f, Y:%.1f)", kind, face, operation.x, operation.y);
}

ZetString Describe(const job::MachineFormat& format) {
    return L"Format \"" + format.name + L"\"" +
           (format.file.isEmpty() ? ZetString() : L" (" + format.file + L")");
}

}  // namespace

const FormattedMember* JobMember::GetFormatted(std::size_t format) const {
    const auto at = std::find_if(m_formatted.begin(), m_formatted.end(), [&](const auto& each) {
        return each.first == format;
    });
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
    do
        m_formatted.clear();
    while (!std::all_of(formats.begin(), formats.end(), write));
    NoteSilent();
}

/// True when each file of the group has a format that says nothing for the operation.
bool JobMember::IsSilent(std::size_t operation) const {
    const std::vector<std::size_t>& files = GetGroup().files;
    const auto saysNothing = [&](std::size_t file) {
        const std::optional<std::size_t>& format = GetJob().files[file].format;
        const FormattedMember* const formatted = format ? GetFormatted(*format) : nullptr;
        return formatted != nullptr && formatted->isSilent[operation] != 0;
    };
    return !files.empty() && std::all_of(files.begin(), files.end(), saysNothing);
}

/// Of features that no file of the group says anything for, one note tells them all.
void JobMember::NoteSilent() {
    ClaimOperations();
    const std::vector<long> silent = m_ledger.FindTags(Account::kNotForMachine);
    if (silent.empty() || !IsToBeMade())
        return;
    const auto count = static_cast<long>(silent.size());
    if (const std::optional<Feature> feature = FeatureOf(silent.front()))
        m_notes.push_back(
            {*feature,
             ZetString::format(
                 kSilentFormat, count, ZetString(count == 1 ? L"feature" : L"features"))});
}

/// False when operations were taken out.
bool JobMember::WriteFormat(std::size_t position) {
    std::vector<FormatFault> faults;
    const FormatWriter& writer = m_rules.GetFormats()[position];
    m_formatted.emplace_back(
        position, writer.WriteMember(m_judging->machineMember, m_rules.GetFormatTexts(), faults));
    return !FileFormatFaults(writer.GetFormat(), faults);
}

/// True when it has taken operations out.
bool JobMember::FileFormatFaults(const job::MachineFormat& format,
                                 const std::vector<FormatFault>& faults) {
    std::set<std::size_t> taken;
    for (const FormatFault& fault : faults) {
        FileFormatFault(format, fault);
        if (fault.operation >= 0)
            taken.insert(static_cast<std::size_t>(fault.operation));
    }
    for (auto at = taken.rbegin(); at != taken.rend(); ++at) {
        m_judging->machineMember.operations.erase(m_judging->machineMember.operations.begin() +
                                                  static_cast<std::ptrdiff_t>(*at));
        m_judging->operationTags.erase(m_judging->operationTags.begin() +
                                       static_cast<std::ptrdiff_t>(*at));
    }
    return !taken.empty();
}

void JobMember::FileFormatFault(const job::MachineFormat& format, const FormatFault& fault) {
    Finding finding{.type = job::kUnwritable,
                    .text = Describe(format) + L": " + fault.text,
                    .required = fault.required,
                    .found = fault.found,
                    .isRefusal = true};
    if (fault.operation < 0) {
        FileError(std::move(finding));
        return;
    }
    const auto position = static_cast<std::size_t>(fault.operation);
    finding.text += L": " + Describe(m_judging->machineMember.operations[position]);
    finding.feature = FeatureOf(m_judging->operationTags[position]);
    FileFinding(finding);
    for (const auto& [place, sink] : m_judging->sinks)
        if (std::get<0>(place) == m_judging->operationTags[position]) {
            finding.feature = FeatureOf(sink.GetHoleData().hostTag);
            FileFinding(finding);
        }
}

}  // namespace plugin
