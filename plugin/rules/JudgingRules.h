#pragma once

#include "job/Job.h"
#include "plugin/formats/FormatWriter.h"
#include "plugin/rules/HoleRuleMatcher.h"

#include "camdata/holes/CMxSingleMemValidation.h"
#include "camdata/platform/host/ZetNCCreator.h"
#include "camdata/platform/text/ZetString.h"

#include <set>
#include <utility>
#include <vector>

namespace plugin {

/// What the members of a run look up in their job, made ready once for all of them. The job must
/// outlive it.
class JudgingRules {
  public:
    explicit JudgingRules(const job::Job& job);

    const job::Job& GetJob() const { return m_job; }
    const HoleRuleMatcher& GetHoleRules() const { return m_holeRules; }
    /// The first type whose patterns fit profile name and code of a creator that has run; null when
    /// none does.
    const job::MemberType* FindMemberType(ZetNCCreator& creator) const;
    /// The prescription of a member type, its positions as distances from the start; null: none.
    const CMxSingleMemValidation* FindPattern(const job::MemberType& type) const;
    /// By position in Job::formats.
    const std::vector<FormatWriter>& GetFormats() const { return m_formats; }
    /// What their lines have in common: of the job, until the run has others.
    const FormatTexts& GetFormatTexts() const { return m_formatTexts; }
    void SetFormatTexts(FormatTexts texts) { m_formatTexts = std::move(texts); }
    /// The job names the mark as a main part or as a single part of an assembly.
    bool IsPartOfAssembly(const ZetString& mark) const;

  private:
    const job::Job& m_job;
    HoleRuleMatcher m_holeRules;
    std::vector<CMxSingleMemValidation> m_patterns;  ///< by position in Job::patterns
    std::set<ZetString> m_assemblyMarks;
    std::vector<FormatWriter> m_formats;
    FormatTexts m_formatTexts;
};

/// Makes them the tolerances of the library, for the whole process.
void UseTolerances(const job::Tolerances& tolerances);

}  // namespace plugin
