#pragma once

#include "report/drawing/MemberDrawing.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace report {

/// A member in the table of a page; UTF-8, mm.
struct PageMember {
    std::string mark;
    std::string profile;
    std::string material;
    double length = 0.0;
    long quantity = 0;
    long uncut = 0;  ///< of its pieces: those that have no bar
    std::string group;
    std::string file;
    FeatureState state = FeatureState::kInOrder;
    bool isNonStandard = false;
    std::string accounts;  ///< what became of its features, in words; "": not told
    std::vector<DrawnFinding> findings;
    std::string drawing;  ///< of CompactDrawing; "": none
    /// What is not as in an earlier output: name of the value or feature, before, now.
    std::vector<std::array<std::string, 3>> changes = {};
    std::string earlier;  ///< of CompactFeatures: where changed and removed features lay; "": none
};

/// Texts that many members share, each kept once.
class SharedTexts {
  public:
    SharedTexts() { IndexOf({}); }

    /// 0 for "".
    std::size_t IndexOf(const std::string& text);
    std::size_t GetCount() const { return m_texts.size(); }
    const std::string& At(std::size_t index) const { return m_texts[index]; }
    /// All of them as a JSON array.
    std::string ToJson() const;

  private:
    std::unordered_map<std::string, std::size_t> m_indices;
    std::vector<std::string> m_texts;
};

/// A text as JSON that can stand within a script element.
std::string JsonText(std::string_view text);

/// A drawing on its way to others that it shares texts with: these get their places only when it
/// joins them, so that several threads may make compact what comes in an order then.
class CompactDrawing {
  public:
    explicit CompactDrawing(const MemberDrawing& drawing);

    /// Faces and features as two JSON arrays by position, a comma between; drawing.js (function
    /// memberOf) reads them. Zeros at the end of an array are left out.
    std::string Join(SharedTexts& texts) const;

  private:
    SharedTexts m_texts;
    std::string m_json;  ///< a text is its place in m_texts between two marks
};

/// Features of a drawing alone, as one JSON array.
std::string CompactFeatures(const std::vector<DrawnFeature>& features, SharedTexts& texts);

/// A member as one JSON array by position, with its drawing.
std::string CompactMember(const PageMember& member, bool isDrawn, SharedTexts& texts);

}  // namespace report
