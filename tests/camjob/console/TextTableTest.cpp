#include "camjob/console/ReportText.h"
#include "camjob/console/TextTable.h"
#include "camjob/console/TextWrap.h"

#include <gtest/gtest.h>

namespace {

using namespace camjob;

TEST(TextTable, AlignsByCharactersShown) {
    TextTable table({
        {L"Größe", TextTable::Align::kRight},
        {L"face",    TextTable::Align::kLeft },
        {L"remark",  TextTable::Align::kLeft }
    });
    table.AddRow({L"8.0", L"web", L""});
    table.AddRow({L"58.0 x 18.0", L"\U0001F529 Träger", L"x"});
    EXPECT_EQ(table.Format({}).toUtf8(),
              "        Gr\xC3\xB6\xC3\x9F"
              "e  face      remark\n"
              "  -----------  --------  ------\n"
              "          8.0  web\n"
              "  58.0 x 18.0  \xF0\x9F\x94\xA9 Tr\xC3\xA4ger  x\n");
}

// Texts go on below, numbers stay whole, nothing is lost; what a file holds cannot steer the
// terminal.
TEST(TextTable, FitsATerminal) {
    TextTable table({
        {L"mark",           TextTable::Align::kLeft },
        {L"overall length", TextTable::Align::kRight},
        {L"what it was",    TextTable::Align::kLeft }
    });
    table.AddRow({L"P1", L"1234567.8", L"58 x 18 at (920, 99), angle 90, L14"}, Tone::kError);
    table.AddRow({L"\x1B[0m", L"1.0", L"a/long/folder/of/P2.nc1"}, Tone::kWarning);
    EXPECT_EQ(Coloured(Printable(table.Format({40, true}))),
              "  mark         overall  what it was\n"
              "                length\n"
              "  ---------  ---------  ----------------\n"
              "\x1B[31m  P1         1234567.8  58 x 18 at (920,\n"
              "                        99), angle 90,\n"
              "                        L14\n\x1B[0m"
              "\x1B[33m  \\u001B[0m        1.0  a/long/folder/of\n"
              "                        /P2.nc1\n\x1B[0m");
    EXPECT_EQ(Coloured(Printable(table.Format({30, false}))),
              "  P1\n"
              "    overall length 1234567.8;\n"
              "    what it was 58 x 18 at\n"
              "    (920, 99), angle 90, L14\n"
              "  \\u001B[0m\n"
              "    overall length 1.0; what\n"
              "    it was\n"
              "    a/long/folder/of/P2.nc1\n");
}

// Words stay whole where they can, the indent goes on, and tones take no room.
TEST(TextTable, LinesBesideItGoOnBelow) {
    const ZetString text =
        L"refused\n" +
        Toned(Line(L"nc/P1.nc1:31: hole 18 at (20, 5): too near to the edge"), Tone::kError, true) +
        Line(L"a/very/long/folder/of/nc/files/P2.nc1:2: bad") +
        Toned(L"  --notes    Show all that is known\n", Tone::kWarning, true);
    EXPECT_EQ(Fitted(text, 0), text);
    EXPECT_EQ(Coloured(Fitted(text, 28).toUtf8()),
              "refused\n"
              "\x1B[31m  nc/P1.nc1:31: hole 18 at\n"
              "    (20, 5): too near to the\n"
              "    edge\n\x1B[0m"
              "  a/very/long/folder/of/nc\n"
              "    /files/P2.nc1:2: bad\n"
              "\x1B[33m  --notes    Show all that\n"
              "             is known\n\x1B[0m");
}

}  // namespace
