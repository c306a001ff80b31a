#pragma once

#include "plugin/output/JobRun.h"
#include "plugin/output/SteelTotals.h"
#include "plugin/output/TextBlocks.h"
#include "plugin/rules/JobMember.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace plugin {

/// A member of a run. Knows what was ordered, which assemblies use up, and lets the run be
/// cancelled before each member that is written.
class JobRun::Member final : public JobMember {
  public:
    Member(const JudgingRules& rules,
           const job::MemberType& type,
           ZetNCCreator& creator,
           const ZetString& file)
        : JobMember(rules, type, creator), m_fileName(NameOf(file)) {}

    /// Before it is written. `position` is that among the members of the run.
    void Join(JobRun& run, std::size_t position) {
        m_run = &run;
        m_position = position;
        m_numberOfPlan = run.NumberOfPlan(*this);
    }
    /// Of those that the run makes; nothing when it is not cut from bars.
    const std::optional<std::size_t>& GetNumberOfPlan() const { return m_numberOfPlan; }

    void WriteMemOutPut(const ZetArray<ZetFileAccess*>& files,
                        ZetArray<CMxPeilaib*>& secondaryParts) override {
        if (m_run->m_isCancelled && m_run->m_isCancelled())
            throw Cancelled();
        JobMember::WriteMemOutPut(files, secondaryParts);
        if (!m_run->m_areRecordsKept)
            m_run->m_records.Drop(m_storedRecords);
    }

    void StoreRecords(TextBlocks& blocks) { m_storedRecords = blocks.Add(TakeRecords().text); }
    /// Among the members of the run.
    std::size_t GetPosition() const { return m_position; }
    /// Of its NC file, without folder, UTF-8; "" when it was not told.
    const std::string& GetFileName() const { return m_fileName; }
    /// When it is made.
    void AddSteelTo(SteelTotals& steel) const {
        if (GetOutcome().IsMade())
            steel.Add(GetOrdered(), GetLength(), GetWeightPerMetre());
    }
    MemberResult GetResult() const {
        const long left = IsSecondaryPart() ? GetQty() : 0;
        MemberResult result;
        result.mark = GetMark();
        result.profileName = GetProfileName();
        result.group = GetGroupPosition();
        result.quantity = GetOrdered();
        result.outcome = GetOutcome();
        result.left = left;
        return result;
    }

  private:
    /// Without its folder: the same wherever the job lies.
    static std::string NameOf(const ZetString& file) {
        const std::size_t slash = file.view().rfind(L'/');
        return ZetString(file.view().substr(slash + 1)).toUtf8();
    }
    std::string_view GetRecordText() const override {
        return m_run->m_areRecordsKept ? JobMember::GetRecordText() : m_storedRecords.View();
    }

    JobRun* m_run = nullptr;
    TextBlocks::Place m_storedRecords;  ///< unless the member keeps them
    std::string m_fileName;
    std::size_t m_position = 0;
    std::optional<std::size_t> m_numberOfPlan;
};

}  // namespace plugin
