#include "camjob/console/TextTable.h"

#include <gtest/gtest.h>

namespace {

using camjob::TextTable;

TEST(TextTable, AlignsByCharactersShown) {
    TextTable table({
        {L"Größe", TextTable::Align::kRight},
        {L"face",    TextTable::Align::kLeft },
        {L"remark",  TextTable::Align::kLeft }
    });
    table.AddRow({L"8.0", L"web", L""});
    table.AddRow({L"58.0 x 18.0", L"\U0001F529 Träger", L"x"});
    EXPECT_EQ(table.Format().toUtf8(),
              "        Gr\xC3\xB6\xC3\x9F"
              "e  face      remark\n"
              "  -----------  --------  ------\n"
              "          8.0  web\n"
              "  58.0 x 18.0  \xF0\x9F\x94\xA9 Tr\xC3\xA4ger  x\n");
}

}  // namespace
