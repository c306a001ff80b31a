#pragma once

#include "report/drawing/MemberDrawing.h"

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
    double length = 0.0;
    long quantity = 0;
    std::string group;
    std::string file;
    FeatureState state = FeatureState::kInOrder;
    bool isNonStandard = false;
    std::string accounts;  ///< what became of its features, in words; "": not told
    std::vector<DrawnFinding> findings;
    std::string drawing;  ///< of CompactDrawing; "": none
};

/// Texts that many members share, each kept once.
class SharedTexts {
  public:
    SharedTexts() { IndexOf({}); }

    /// 0 for "".
    std::size_t IndexOf(const std::string& text);
    /// All of them as a JSON array.
    std::string ToJson() const;

  private:
    std::unordered_map<std::string, std::size_t> m_indices;
    std::vector<std::string> m_texts;
};

/// A text as JSON that can stand within a script element.
std::string JsonText(std::string_view text);

/// Faces and features of a drawing as two JSON arrays by position, a comma between; drawing.js
/// (function memberOf) reads them. Zeros at the end of an array are left out.
std::string CompactDrawing(const MemberDrawing& drawing, SharedTexts& texts);

/// A member as one JSON array by position, with its drawing.
std::string CompactMember(const PageMember& member, bool isDrawn, SharedTexts& texts);

}  // namespace report
