#include "support/Golden.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace {

std::string Read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string LineAt(const std::string& text, std::size_t lineStart) {
    return text.substr(std::min(lineStart, text.size()),
                       text.find('\n', lineStart) - std::min(lineStart, text.size()));
}

::testing::AssertionResult Difference(const std::string& path,
                                      const std::string& expected,
                                      const std::string& actual) {
    const auto [e, a] =
        std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    const auto at = static_cast<std::size_t>(e - expected.begin());
    const std::size_t before = at == 0 ? std::string::npos : expected.rfind('\n', at - 1);
    const std::size_t lineStart = before == std::string::npos ? 0 : before + 1;
    return ::testing::AssertionFailure()
           << path << ":" << 1 + std::count(expected.begin(), e, '\n') << ":" << 1 + at - lineStart
           << ":\n expected [" << LineAt(expected, lineStart) << "]\n   actual ["
           << LineAt(actual, lineStart) << "]\n"
           << "UPDATE_GOLDEN=1 accepts the actual text.";
}

}  // namespace

::testing::AssertionResult MatchesGolden(const std::string& folder,
                                         const std::string& name,
                                         const std::string& text) {
    const std::string path = folder + "/" + name + ".txt";
    if (std::getenv("UPDATE_GOLDEN") != nullptr) {
        std::ofstream(path, std::ios::binary) << text;
        return ::testing::AssertionSuccess();
    }
    const std::string expected = Read(path);
    return expected == text ? ::testing::AssertionSuccess() : Difference(path, expected, text);
}
