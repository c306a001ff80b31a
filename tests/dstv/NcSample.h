#pragma once

#include "dstv/NcReader.h"

#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

/// Makes the text of an NC file; the header takes 24 lines after ST, so blocks begin at line 26.
struct NcSample {
    std::string quantity = "2";
    std::string code = "SO";
    std::string length = "3000.00";
    std::string height = "175.00";
    std::string width = "81.00";
    std::string web = "1.50";
    std::string webStartCut = "0.000";
    std::string webEndCut = "0.000";
    std::string flangeStartCut = "0.000";
    std::string flangeEndCut = "0.000";
    std::string mark = "P1";

    std::string Header() const {
        std::string text = "ST\n";
        // clang-format off
        for (const std::string& value : std::vector<std::string>{
                 "Order", "Z-1", "1", mark, "S350GD", quantity, "ZS 175*1.5", code, length, height,
                 width, web, web, "4.00", "4.416", "0.753", webStartCut, webEndCut, flangeStartCut,
                 flangeEndCut})
            // clang-format on
            text += "  " + value + "\n";
        return text + "  Purlin\n\n\n\n";
    }
    std::string With(const std::string& blocks) const { return Header() + blocks; }
};

inline std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

inline std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size(); at += lines.back().size())
        lines.push_back(text.substr(at, text.find('\n', at) + 1 - at));
    return lines;
}

inline dstv::NcPart ReadPart(const std::string& text) {
    dstv::NcResult result = dstv::ParseNc(text, L"part.nc1");
    if (const auto* error = std::get_if<dstv::NcError>(&result)) {
        ADD_FAILURE() << error->describe().toUtf8();
        return {};
    }
    return std::get<dstv::NcPart>(std::move(result));
}

/// The error as one line; "read" when there is none.
inline std::string ReadError(const std::string& text) {
    const dstv::NcResult result = dstv::ParseNc(text, L"part.nc1");
    const auto* error = std::get_if<dstv::NcError>(&result);
    return error == nullptr ? "read" : error->describe().toUtf8();
}

/// The error, and those of its file behind it.
inline std::vector<ZetString> ToldErrors(const dstv::NcError& error) {
    std::vector<ZetString> lines = {error.describe()};
    for (const dstv::NcError& further : error.further)
        lines.push_back(further.describe());
    return lines;
}

/// What the reader tells of a file: why it refuses it, or its notes.
inline std::string ToldOf(const std::string& text) {
    std::string lines;
    const dstv::NcResult result = dstv::ParseNc(text, L"part.nc1");
    if (const auto* error = std::get_if<dstv::NcError>(&result)) {
        for (const ZetString& told : ToldErrors(*error))
            lines += "refused " + told.toUtf8().substr(std::string("part.nc1:").size()) + "\n";
        return lines;
    }
    for (const dstv::NcNote& note : ReadPart(text).notes)
        lines += (note.severity == dstv::NcNote::Severity::kWarning ? "warning " : "note ") +
                 std::to_string(note.line) + ": " + note.text.toUtf8() + "\n";
    return lines;
}
