#include "numbers/TextBuffer.h"

#include <cstdint>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace {

using numbers::TextBuffer;

TEST(TextBuffer, HoldsWhatWasAddedHoweverLittleRoomItBeganWith) {
    for (const std::size_t room : {0u, 1u, 40u, 1000u}) {
        TextBuffer text(room);
        text.Add("of old");
        text.Clear();
        text.AddWord("hole");
        text.Add(" x=");
        text.AddFixed(1234.5675, 3);
        text.Add(' ');
        text.AddFixed(1e15, 1);
        text.AddBlanks(2);
        EXPECT_TRUE(text.AddAscii(L"H18", [](wchar_t c) { return c != L'"'; }));
        EXPECT_FALSE(text.AddAscii(L"H\"18", [](wchar_t c) { return c != L'"'; }));
        EXPECT_EQ(text.View(), "hole x=1234.568 1000000000000000.0  H18") << room;
    }
}

struct UnitsCase {
    std::int64_t value;
    int decimals;
    const char* text;
};

TEST(TextBuffer, UnitsAreWholeNumbersWithAPoint) {
    constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
    constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
    for (const UnitsCase& c : {
             UnitsCase{0,             0, "0"                    },
             {0,             3, "0.000"                },
             {7,             3, "0.007"                },
             {-7,            3, "-0.007"               },
             {100,           2, "1.00"                 },
             {4294967296,    0, "4294967296"           },
             {999999999999,  3, "999999999.999"        },
             {1000000000000, 3, "1000000000.000"       },
             {kMost,         0, "9223372036854775807"  },
             {kLeast,        3, "-9223372036854775.808"}
    }) {
        TextBuffer text(0);
        text.AddUnits(c.value, c.decimals);
        EXPECT_EQ(text.View(), c.text);
    }
}

TEST(TextBuffer, ColumnsEndAtTheirWidthOrBehindIt) {
    TextBuffer text(0);
    for (const std::int64_t value : {7, 12345, 1234567}) {
        const std::size_t begin = text.GetSize();
        text.AddWhole(value);
        text.AlignRight(begin, 5);
        text.Add('|');
    }
    EXPECT_EQ(text.View(), "    7|12345|1234567|");
}

}  // namespace
