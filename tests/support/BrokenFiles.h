#pragma once

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

/// One case of a table of broken files: a good file with one text replaced by another, and the
/// faults that must be told, a line each.
struct BrokenFile {
    std::string name;
    std::string oldText;
    std::string newText;
    std::string faults;
};

inline std::string UnescapedLine(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEscape = text[i] == '\\';
        const char c = text[isEscape ? ++i : i];
        plain += isEscape && c == 'n' ? '\n' : c;
    }
    return plain;
}

/// "= name", "- old text", "+ new text", "! fault"; all else is a comment.
inline std::vector<BrokenFile> ReadBrokenFiles(const std::string& table) {
    std::vector<BrokenFile> cases;
    std::ifstream lines(table, std::ios::binary);
    for (std::string line; std::getline(lines, line);) {
        const std::string text = line.size() > 2 ? line.substr(2) : "";
        if (line.starts_with("= "))
            cases.push_back({text, "", "", ""});
        else if (line.starts_with("- "))
            cases.back().oldText = UnescapedLine(text);
        else if (line.starts_with("+ "))
            cases.back().newText = UnescapedLine(text);
        else if (line.starts_with("! "))
            cases.back().faults += text + "\n";
    }
    return cases;
}
