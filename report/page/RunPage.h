#pragma once

#include "report/drawing/MemberDrawing.h"
#include "report/page/CompactMember.h"
#include "report/page/PageText.h"
#include "report/page/PlanDrawing.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

/// @file
/// A run as its page shows it: plain data, texts in UTF-8.

namespace report {

/// One line of a list of names and values.
struct PageFact {
    std::string name;
    std::string value;
};

/// A table with a heading of its own.
struct PageTable {
    std::string title;
    std::vector<std::string> headings;
    std::vector<std::vector<std::string>> rows;
    std::string ifEmpty;            ///< what is said instead of an empty table; "": nothing at all
    bool isOfMembers = false;       ///< rows begin with the mark of a member
    std::size_t firstNumber = 100;  ///< columns from there on are numbers
};

/// The page of a run: one HTML file that needs no other and no network.
///
/// Members and plans are taken one by one and kept as texts. The same calls give the same bytes.
class RunPage {
  public:
    std::string name;                ///< of the job
    std::vector<PageFact> project;   ///< in order; those without a value are left out
    std::vector<PageFact> totals;    ///< the counts that everybody looks for first
    std::vector<PageTable> changes;  ///< against an earlier run
    PageTable planTotals;            ///< of all plans together
    std::vector<PageTable> tables;   ///< below the members
    std::vector<PageTable> rules;    ///< that judged, below all else

    /// `texts`: those of the members' compact drawings.
    explicit RunPage(SharedTexts texts) : m_texts(std::move(texts)) {}

    /// For a member that is added later.
    std::string Compact(const std::vector<DrawnFeature>& features) {
        return CompactFeatures(features, m_texts);
    }
    /// One with pieces that have no bar is shown with a warning, but not counted as such.
    void AddMember(PageMember member);
    void AddPlan(const CuttingPlan& plan) { m_plans += PlanHtml(plan); }
    /// As HTML.
    void Write(const Sink& sink) const;

  private:
    /// A member with findings, for the list that needs no script.
    struct Faulty {
        std::string mark;
        FeatureState state;
        std::vector<DrawnFinding> findings;
    };

    void WriteData(const Sink& sink) const;
    std::string FaultyHtml() const;
    std::string UndrawnHtml() const;
    std::string VerdictHtml() const;

    SharedTexts m_texts;
    std::vector<std::string> m_members;
    std::string m_plans;
    std::vector<Faulty> m_faulty;
    std::size_t m_bytes = 0;
    std::size_t m_undrawn = 0;
    std::size_t m_invalid = 0;
    std::size_t m_withWarnings = 0;
    long m_uncut = 0;
};

}  // namespace report
