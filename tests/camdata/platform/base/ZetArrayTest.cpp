#include "support/AssertionOf.h"

#include "camdata/platform/base/ZetArray.h"

#include <string>

#include <gtest/gtest.h>

namespace {

TEST(ZetArrayTest, MisuseFailsTheAssertionOfItsKind) {
    ZetArray<int> empty;
    ZetArray<int> three = {1, 2, 3};
    const ZetArray<int>& constThree = three;
    EXPECT_EQ(AssertionOf([&] { three[3] = 0; }), "isValid( index )");
    EXPECT_EQ(AssertionOf([&] { three[-1] = 0; }), "isValid( index )");
    EXPECT_EQ(AssertionOf([&] { static_cast<void>(constThree[3]); }), "isValid( index )");
    EXPECT_EQ(AssertionOf([&] { three.removeAt(3); }), "isValid( index )");
    EXPECT_EQ(AssertionOf([&] { three.insertAt(4, 0); }), "isValid( index )");
    EXPECT_EQ(AssertionOf([&] { three.setLength(-1); }), "len>=0");
    EXPECT_EQ(AssertionOf([&] { three.reserve(-1); }), "len>=0");
    EXPECT_EQ(AssertionOf([&] { static_cast<void>(empty.first()); }), "!isEmpty()");
    EXPECT_EQ(AssertionOf([&] { static_cast<void>(empty.last()); }), "!isEmpty()");
    EXPECT_EQ(three, (ZetArray<int>{1, 2, 3}));
}

TEST(ZetArrayTest, TellsTheHandlerTextFileAndLineFirst) {
    static std::string seen;
    SetZetAssertHandler([](const char* text, const char* file, int line) {
        seen = std::string(text) + " " + file + (line > 0 ? " with line" : "");
    });
    EXPECT_EQ(AssertionOf([] { ZetArray<int>()[0] = 1; }), "isValid( index )");
    SetZetAssertHandler(nullptr);
    EXPECT_EQ(seen, "isValid( index ) camdata/platform/base/ZetArray.h with line");
}

TEST(ZetArrayTest, AppendsItsOwnElements) {
    ZetArray<std::string> words = {"purlin", "rail"};
    for (int i = 0; i < 20; ++i)
        words.append(words.first());
    words.appendAll(words);
    EXPECT_EQ(words.length(), 44);
    EXPECT_EQ(words[23], "rail");
    EXPECT_EQ(words.find("rail"), 1);
    words.insertAt(1, "rod");
    words.setLength(3);
    words.removeAt(0);
    EXPECT_EQ(words, (ZetArray<std::string>{"rod", "rail"}));
}

/// Counts how often a value was copied or moved.
struct Counted {
    static inline long s_transfers = 0;

    Counted() = default;
    Counted(const Counted&) { ++s_transfers; }
    Counted(Counted&&) noexcept { ++s_transfers; }
    Counted& operator=(const Counted&) = default;
    Counted& operator=(Counted&&) = default;
};

TEST(ZetArrayTest, AppendingGrowsInLinearTime) {
    constexpr long kCount = 100000;
    Counted::s_transfers = 0;
    ZetArray<Counted> values;
    for (long i = 0; i < kCount; ++i)
        values.append(Counted());
    EXPECT_LT(Counted::s_transfers, 8 * kCount);
}

}  // namespace
