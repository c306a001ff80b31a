#include "report/page/PlanDrawing.h"

#include "report/drawing/DrawingText.h"
#include "report/page/PageText.h"

#include <algorithm>

namespace report {

namespace {

constexpr double kWidth = 1000.0;
constexpr double kBarHeight = 30.0;
/// A letter of a label takes about that much, pixels.
constexpr double kLetter = 8.5;
constexpr double kMargin = 6.0;

std::string Rectangle(const char* style, double x, double width) {
    return "<rect class=\"" + std::string(style) + "\" x=\"" + Number(x, 2) +
           "\" y=\"1\" width=\"" + Number(width, 2) + "\" height=\"" + Number(kBarHeight - 2.0) +
           "\"/>";
}

/// A saw cut is seen however narrow it is; the bar begins and ends in the grips.
std::string CutOf(double at, double kerf, double scale) {
    constexpr double kLeast = 2.0;
    const double width = std::max(kerf * scale, kLeast);
    return Rectangle("kerf", (at + kerf / 2.0) * scale - width / 2.0, width);
}

/// The longest text that fits, in the middle.
std::string LabelIn(double x,
                    double width,
                    const std::string& longText,
                    const std::string& shortText) {
    for (const std::string& text : {longText, shortText})
        if (static_cast<double>(text.size()) * kLetter + kMargin < width)
            return "<text class=\"middle\" x=\"" + Number(x + width / 2.0, 2) + "\" y=\"19\">" +
                   Escaped(text) + "</text>";
    return {};
}

std::string PieceOf(const PlanPiece& piece, double scale) {
    const double x = piece.start * scale;
    const double width = piece.length * scale;
    const std::string length = Number(piece.length, 1);
    return "<g data-mark=\"" + Escaped(piece.mark) + "\"><title>" + Escaped(piece.mark) + ", " +
           length + " mm, from " + Number(piece.start, 1) + "</title>" +
           Rectangle("piece", x, width) +
           LabelIn(x, width, piece.mark + "  " + length, piece.mark) + "</g>";
}

std::string OffcutOf(const PlanBar& bar, double scale) {
    if (bar.offcut <= 0.0)
        return {};
    const double x = (bar.length - bar.gripEnd - bar.offcut) * scale;
    const double width = bar.offcut * scale;
    const std::string text = Number(bar.offcut, 1);
    return "<g><title>off-cut " + text + " mm" + (bar.isOffcutKept ? ", kept" : "") + "</title>" +
           Rectangle(bar.isOffcutKept ? "offcut kept" : "offcut", x, width) +
           LabelIn(x, width, "off-cut " + text, text) + "</g>";
}

/// "3 x P1 1200, 1 x P2 800", for those who read and do not see.
std::string PiecesInWords(const PlanBar& bar) {
    std::string text;
    for (std::size_t i = 0; i < bar.pieces.size();) {
        std::size_t end = i;
        while (end < bar.pieces.size() && bar.pieces[end].mark == bar.pieces[i].mark)
            ++end;
        Append(text,
               text.empty() ? "" : ", ",
               std::to_string(end - i),
               " x ",
               bar.pieces[i].mark,
               " ",
               Number(bar.pieces[i].length, 1));
        i = end;
    }
    return text;
}

std::string PiecesOf(const PlanBar& bar, double scale) {
    std::string text;
    for (const PlanPiece& piece : bar.pieces)
        text += PieceOf(piece, scale);
    if (bar.kerf > 0.0)
        for (const PlanPiece& piece : bar.pieces)
            text += CutOf(piece.start + piece.length, bar.kerf, scale);
    return text;
}

std::string BarOf(const PlanBar& bar, long first, double scale) {
    const long last = first + bar.count - 1;
    const std::string numbers =
        std::to_string(first) + (last > first ? " to " + std::to_string(last) : "");
    const std::string source =
        Number(bar.length, 1) + " mm" + (bar.remnant.empty() ? "" : ", ") + bar.remnant;
    const std::string name = "bar " + numbers + ", " + source + ": " + PiecesInWords(bar) +
                             "; off-cut " + Number(bar.offcut, 1) +
                             (bar.isOffcutKept ? ", kept" : "");
    return "<li class=\"bar\"><span class=\"bar-name\"><span class=\"number\">" + numbers +
           "</span><span class=\"source\">" + Escaped(source) +
           "</span></span><svg class=\"drawing\" role=\"img\" viewBox=\"0 0 " + Number(kWidth) +
           " " + Number(kBarHeight) + "\" aria-label=\"" + Escaped(name) + "\">" +
           Rectangle("stock", 0.0, bar.length * scale) + OffcutOf(bar, scale) +
           PiecesOf(bar, scale) + "</svg></li>\n";
}

/// A patch of colour with what it stands for.
std::string KeyEntry(const char* style, const char* words) {
    return "<span class=\"status\"><svg class=\"drawing\" viewBox=\"0 0 30 30\" "
           "aria-hidden=\"true\">" +
           Rectangle(style, 1.0, 28.0) + "</svg>" + words + "</span>";
}

}  // namespace

std::string PlanKeyHtml() {
    return "<p class=\"key\">" + KeyEntry("piece", "piece") + KeyEntry("kerf", "saw cut") +
           KeyEntry("offcut kept", "off-cut, kept") + KeyEntry("offcut", "off-cut, scrap") +
           KeyEntry("stock", "grip of the machine") +
           "<span>Bars of one plan are drawn to one scale.</span><span class=\"help\">Click a piece "
           "to see its member.</span></p>";
}

std::string PlanHtml(const CuttingPlan& plan) {
    double longest = 1.0;
    for (const PlanBar& bar : plan.bars)
        longest = std::max(longest, bar.length);
    const std::string title = Escaped(plan.title);
    std::string text = Element("h3", plan.title) + Element("p", plan.summary) +
                       "<ol class=\"bars\" tabindex=\"0\" aria-label=\"Bars of " + title +
                       "\" data-plan=\"" + title + "\">\n";
    long number = plan.firstBar;
    for (const PlanBar& bar : plan.bars) {
        text += BarOf(bar, number, kWidth / longest);
        number += bar.count;
    }
    return text + "</ol>\n";
}

}  // namespace report
