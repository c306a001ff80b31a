#include "support/Golden.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>

namespace {

namespace fs = std::filesystem;

std::string Read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool IsUpdate() {
    return std::getenv("UPDATE_GOLDEN") != nullptr;
}

bool ContinuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80;
}

/// A place in a text.
struct Place {
    const std::string& text;
    std::size_t at;

    std::size_t LineStart() const {
        const std::size_t before = at == 0 ? std::string::npos : text.rfind('\n', at - 1);
        return before == std::string::npos ? 0 : before + 1;
    }
    std::string Line() const {
        const std::size_t start = LineStart();
        return text.substr(start, text.find('\n', start) - start);
    }
    std::string Character() const {
        if (at >= text.size())
            return "end of file";
        if (text[at] == '\n')
            return "end of line";
        std::size_t end = at + 1;
        while (end < text.size() && ContinuesCharacter(text[end]))
            ++end;
        return "'" + text.substr(at, end - at) + "'";
    }
};

/// Line and column, both from 1, the column in characters.
std::string Numbers(const Place& place) {
    const auto begin = place.text.begin();
    const auto here = begin + static_cast<std::ptrdiff_t>(place.at);
    const auto lineStart = begin + static_cast<std::ptrdiff_t>(place.LineStart());
    const auto line = 1 + std::count(begin, here, '\n');
    const auto column =
        1 + std::count_if(lineStart, here, [](char c) { return !ContinuesCharacter(c); });
    return std::to_string(line) + ":" + std::to_string(column);
}

::testing::AssertionResult Difference(const fs::path& path,
                                      const std::string& expected,
                                      const std::string& actual) {
    const auto [e, a] =
        std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    auto at = static_cast<std::size_t>(e - expected.begin());
    while (at > 0 && at < expected.size() && ContinuesCharacter(expected[at]))
        --at;
    const Place wanted{expected, at};
    const Place found{actual, at};
    return ::testing::AssertionFailure()
           << path.generic_string() << ":" << Numbers(wanted) << ": expected " << wanted.Character()
           << ", actual " << found.Character() << "\n expected [" << wanted.Line()
           << "]\n   actual [" << found.Line() << "]\n"
           << "scripts/approve.sh accepts the actual text.";
}

::testing::AssertionResult MatchesGoldenFile(const fs::path& path, const std::string& text) {
    if (IsUpdate()) {
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
        return ::testing::AssertionSuccess();
    }
    const std::string expected = Read(path);
    return expected == text ? ::testing::AssertionSuccess() : Difference(path, expected, text);
}

std::set<fs::path> NamesIn(const fs::path& folder) {
    std::set<fs::path> names;
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder, ignored))
        if (entry.is_regular_file())
            names.insert(entry.path().filename());
    return names;
}

}  // namespace

::testing::AssertionResult MatchesGolden(const std::string& folder,
                                         const std::string& name,
                                         const std::string& text) {
    return MatchesGoldenFile(fs::path(folder) / (name + ".txt"), text);
}

::testing::AssertionResult MatchesGoldenFolder(const fs::path& goldenFolder,
                                               const fs::path& folder) {
    const std::set<fs::path> names = NamesIn(folder);
    for (const fs::path& name : NamesIn(goldenFolder)) {
        if (names.count(name) > 0)
            continue;
        if (!IsUpdate())
            return ::testing::AssertionFailure() << name.generic_string() << " is missing";
        fs::remove(goldenFolder / name);
    }
    for (const fs::path& name : names) {
        if (!IsUpdate() && !fs::exists(goldenFolder / name))
            return ::testing::AssertionFailure() << name.generic_string() << " is one too many";
        if (const auto result = MatchesGoldenFile(goldenFolder / name, Read(folder / name));
            !result)
            return result;
    }
    return ::testing::AssertionSuccess();
}
