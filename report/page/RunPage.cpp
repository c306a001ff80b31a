#include "report/page/RunPage.h"

#include "report/drawing/DrawingStyle.h"
#include "report/drawing/DrawingText.h"
#include "report/page/PageText.h"
#include "report/page/PageTexts.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace report {

namespace {

/// Beyond that many bytes of members, drawings of members in order are left out: a browser would
/// take too long.
constexpr std::size_t kMaxMemberBytes = 15u << 20;
/// Rows of a table.
constexpr std::size_t kMaxRows = 500;
/// Members of the list that needs no script.
constexpr std::size_t kMaxFaulty = 100;

std::string FactsHtml(const std::vector<PageFact>& facts) {
    std::string html;
    for (const PageFact& fact : facts)
        if (!fact.value.empty())
            Append(html, "<div>", Element("dt", fact.name), Element("dd", fact.value), "</div>\n");
    return html;
}

/// The mark of a member is a link to it.
std::string LinkTo(const std::string& mark) {
    return "<a class=\"jump\" href=\"#member\" data-mark=\"" + Escaped(mark) + "\">" +
           Escaped(mark) + "</a>";
}

std::string CellHtml(const PageTable& table,
                     const std::string& cell,
                     std::size_t column,
                     const std::string& text) {
    const char* style = column >= table.firstNumber ? " class=\"right\"" : "";
    return "<" + cell + style + ">" + text + "</" + cell + ">";
}

std::string HeadingsHtml(const PageTable& table) {
    std::string html = "<tr>";
    for (std::size_t i = 0; i < table.headings.size(); ++i)
        html += CellHtml(table, "th", i, Escaped(table.headings[i]));
    return html + "</tr>\n";
}

std::string RowHtml(const PageTable& table, const std::vector<std::string>& texts) {
    std::string html = "<tr>";
    for (std::size_t i = 0; i < texts.size(); ++i)
        html += CellHtml(
            table, "td", i, i == 0 && table.isOfMembers ? LinkTo(texts[i]) : Escaped(texts[i]));
    return html + "</tr>\n";
}

/// The table alone, or what is said instead.
std::string BodyHtml(const PageTable& table) {
    if (table.rows.empty())
        return Element("p", table.ifEmpty);
    std::string html = "<div class=\"wide\" tabindex=\"0\" role=\"region\" aria-label=\"" +
                       Escaped(table.title) + "\"><table aria-label=\"" + Escaped(table.title) +
                       "\"><thead>" + HeadingsHtml(table) + "</thead><tbody>\n";
    const std::size_t shown = std::min(table.rows.size(), kMaxRows);
    for (std::size_t i = 0; i < shown; ++i)
        html += RowHtml(table, table.rows[i]);
    html += "</tbody></table></div>";
    if (const std::size_t left = table.rows.size() - shown; left > 0)
        html += Element("p",
                        std::to_string(left) +
                            " more rows are not shown here; the document of the run has all.");
    return html;
}

bool IsShown(const PageTable& table) {
    return !table.rows.empty() || !table.ifEmpty.empty();
}

std::string TablesHtml(const std::vector<PageTable>& tables) {
    std::string html;
    for (const PageTable& table : tables)
        if (IsShown(table))
            html += "<section>" + Element("h2", table.title) + BodyHtml(table) + "</section>\n";
    return html;
}

std::string RulesHtml(const std::vector<PageTable>& tables) {
    std::string html;
    for (const PageTable& table : tables)
        if (IsShown(table))
            html += Element("h3", table.title) + BodyHtml(table) + "\n";
    return html.empty() ? html
                        : "<section id=\"rules\"><h2>The job's rules that judged</h2>\n" + html +
                              "</section>\n";
}

void WritePlans(const std::string& plans, const PageTable& totals, const Sink& sink) {
    if (plans.empty())
        return;
    sink("<section id=\"plans\"><h2>Cutting plans</h2>\n" + BodyHtml(totals) + PlanKeyHtml() +
         "\n");
    sink(plans);
    sink("<p id=\"print-bars\"></p></section>\n");
}

std::string FindingHtml(const DrawnFinding& finding) {
    const bool isError = finding.state == FeatureState::kError;
    std::string word = WordOf(finding);
    word.front() = static_cast<char>(word.front() - 'a' + 'A');
    std::string html;
    Append(html,
           "<li class=\"",
           isError ? "is-error" : "is-warning",
           "\"><b>",
           word,
           ":</b> ",
           Escaped(finding.text),
           finding.line == 0 ? "" : " (line " + std::to_string(finding.line) + ")");
    if (!finding.rule.empty())
        Append(html, " <span class=\"rule\">", Escaped(finding.rule), "</span>");
    return html + "</li>";
}

/// What stands between backticks is what a job file says.
std::string WithCode(const std::string& text) {
    std::string html;
    bool isCode = false;
    for (const char c : Escaped(text)) {
        if (c != '`') {
            html += c;
            continue;
        }
        html += isCode ? "</code>" : "<code>";
        isCode = !isCode;
    }
    return html;
}

/// What can be done about findings, each remedy once.
std::string RemediesHtml(const std::vector<DrawnFinding>& findings) {
    std::set<std::string> told;
    std::string html;
    for (const DrawnFinding& finding : findings)
        if (!finding.remedy.empty() && told.insert(finding.remedy).second)
            html += "<li class=\"remedy\">" + WithCode(finding.remedy) + "</li>";
    return html;
}

long CountErrors(const std::vector<DrawnFinding>& findings) {
    const auto isError = [](const DrawnFinding& finding) {
        return finding.state == FeatureState::kError;
    };
    return static_cast<long>(std::count_if(findings.begin(), findings.end(), isError));
}

}  // namespace

void RunPage::AddMember(PageMember member) {
    m_invalid += member.state == FeatureState::kError ? 1 : 0;
    m_withWarnings += member.state == FeatureState::kWarning ? 1 : 0;
    m_uncut += member.uncut;
    const bool isFaulty = member.state >= FeatureState::kWarning;
    const bool isDrawn = isFaulty || m_bytes < kMaxMemberBytes;
    m_members.push_back(CompactMember(member, isDrawn, m_texts));
    m_bytes += m_members.back().size();
    m_undrawn += isDrawn ? 0 : 1;
    if (isFaulty)
        m_faulty.push_back({member.mark, member.state, member.findings});
}

/// The one sentence that says whether the job can go to the machine, and what steel it lacks.
std::string RunPage::VerdictHtml() const {
    const std::string all = std::to_string(m_members.size());
    std::string state = m_withWarnings > 0 ? "warning" : "good";
    std::string text = m_uncut > 0             ? ""
                       : m_members.size() == 1 ? "<b>The only member is made.</b>"
                                               : "<b>All " + all + " members are made.</b>";
    if (m_invalid > 0) {
        state = "error";
        text = "<b>" + std::to_string(m_invalid) + " of " + all +
               (m_invalid == 1 ? " members has errors and is" : " members have errors and are") +
               " not made.</b> The files hold the others.";
    } else if (m_withWarnings > 0) {
        text += m_members.size() == 1
                    ? " It has warnings."
                    : " " + std::to_string(m_withWarnings) +
                          (m_withWarnings == 1 ? " member has" : " members have") + " warnings.";
    }
    if (m_uncut > 0) {
        state = "error";
        text = "<b>" + std::to_string(m_uncut) + (m_uncut == 1 ? " piece has" : " pieces have") +
               " no bar to be cut from.</b>" + (m_invalid > 0 ? " " : "") + text;
    }
    return "<p class=\"verdict is-" + state + "\">" + text + "</p>";
}

/// The worst first.
std::string RunPage::FaultyHtml() const {
    if (m_faulty.empty())
        return "<p>No member has findings.</p>";
    std::vector<const Faulty*> faulty;
    for (const Faulty& member : m_faulty)
        faulty.push_back(&member);
    const auto weight = [](const Faulty* one) {
        return std::tuple(one->state, CountErrors(one->findings), one->findings.size());
    };
    std::stable_sort(faulty.begin(), faulty.end(), [&](const Faulty* a, const Faulty* b) {
        return weight(a) > weight(b);
    });
    std::string html = "<ul class=\"faulty\">\n";
    for (std::size_t i = 0; i < std::min(faulty.size(), kMaxFaulty); ++i) {
        html += "<li>" + LinkTo(faulty[i]->mark) + "<ul>";
        for (const DrawnFinding& finding : faulty[i]->findings)
            html += FindingHtml(finding);
        html += RemediesHtml(faulty[i]->findings);
        html += "</ul></li>\n";
    }
    html += "</ul>";
    if (faulty.size() > kMaxFaulty)
        html += "<p>" + std::to_string(faulty.size() - kMaxFaulty) +
                " more members with findings stand in the table.</p>";
    return html;
}

std::string RunPage::UndrawnHtml() const {
    return m_undrawn == 0 ? ""
                          : "<p>" + std::to_string(m_undrawn) +
                                " members in order are not drawn: the page would be too large.</p>";
}

void RunPage::WriteData(const Sink& sink) const {
    sink("{\"texts\":");
    sink(m_texts.ToJson());
    sink(",\n\"members\":[");
    for (std::size_t i = 0; i < m_members.size(); ++i) {
        sink(i == 0 ? "\n" : ",\n");
        sink(m_members[i]);
    }
    sink("]}");
}

void RunPage::Write(const Sink& sink) const {
    const auto writeAll = [&](const auto&... texts) { (sink(texts), ...); };
    Fill(kPageTemplate,
         {
             {"title",   [&] { sink(Escaped(name)); }                                },
             {"style",   [&] { writeAll(kDrawingStyle, kPageStyle); }                },
             {"project", [&] { sink(FactsHtml(project)); }                           },
             {"verdict", [&] { sink(VerdictHtml()); }                                },
             {"totals",  [&] { sink(FactsHtml(totals)); }                            },
             {"changes", [&] { sink(TablesHtml(changes)); }                          },
             {"faulty",  [&] { writeAll(FaultyHtml(), UndrawnHtml()); }              },
             {"plans",   [&] { WritePlans(m_plans, planTotals, sink); }              },
             {"tables",  [&] { writeAll(TablesHtml(tables), RulesHtml(rules)); }     },
             {"data",    [&] { WriteData(sink); }                                    },
             {"script",  [&] { writeAll(kDrawingScript, kTableScript, kPageScript); }},
    },
         sink);
}

}  // namespace report
