#include "camjob/run/KnownMarks.h"

#include <map>
#include <optional>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

TEST(KnownMarks, TellsWhoHadAMarkFirst) {
    constexpr std::size_t kCount = 20'000;
    camjob::KnownMarks marks(kCount);
    std::map<std::string, std::size_t> plain;
    std::mt19937 random(5);
    for (std::size_t part = 0; part < kCount; ++part) {
        const std::string mark = std::to_string(random() % kCount);
        const auto [first, isNew] = plain.insert({mark, part});
        ASSERT_EQ(marks.Add(mark), isNew ? std::nullopt : std::optional(first->second)) << mark;
    }
    EXPECT_EQ(marks.GetAll().size(), kCount);
}

}  // namespace
