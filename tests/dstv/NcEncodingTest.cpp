#include "codepages/CodePages.h"
#include "dstv/NcSample.h"
#include "dstv/NcText.h"

#include <set>

namespace {

/// The mark of the sample as a reading makes it, or what is wrong.
std::string MarkOf(const std::string& mark, const dstv::NcReading& reading) {
    NcSample sample;
    sample.mark = mark;
    const dstv::NcResult result = dstv::ParseNc(sample.With("EN\n"), L"a/b/W-7.x.nc1", reading);
    if (const auto* error = std::get_if<dstv::NcError>(&result))
        return error->describe().toUtf8();
    return std::get<dstv::NcPart>(result).header.mark.toUtf8();
}

TEST(NcEncoding, TheSameBytesInSeveral) {
    using enum dstv::NcMarkSource;
    const std::string utf8 = "Tr\xC3\xA4ger";
    // clang-format off
    struct Case { std::string bytes; std::string encoding; std::string mark; };
    const Case cases[] = {
        {"\xC1\xE0\xEB\xEA\xE0", "windows-1251", "Балка"},
        {"\xC1\xE0\xEB\xEA\xE0", "auto", "Áàëêà"},
        {"Tr\xE4ger", "iso-8859-1", "Träger"},
        {"\xA3\xF3" "d\x9F", "windows-1250", "Łódź"},
        {"\xA3\xF3" "d\xBC", "iso-8859-2", "Łódź"},
        {"\xEB\xDC", "windows-1253", "λά"},
        {"1\x80", "windows-1252", "1€"},
        {"1\x80", "windows-1251", "1Ђ"},
        {"1\x9F\xA0" "1", "auto", "1Ÿ\u00A0" "1"},
        {"1\xA4", "iso-8859-15", "1€"},
        {utf8, "auto", "Träger"},
        {"\xE2\x82" "A", "auto", "â‚A"},
        {utf8, "utf-8", "Träger"},
        {utf8, "windows-1252", "TrÃ¤ger"},
        {"P1", "iso-8859-16", "P1"},
        {"Tr\xE4ger", "utf-8",
         "a/b/W-7.x.nc1:5: text \"Träger\": expected text in utf-8, which has no such byte"},
        {"A\x81", "windows-1253",
         "a/b/W-7.x.nc1:5: text \"A\xEF\xBF\xBD\": expected text in windows-1253, which has no such byte"},
        {"P1", "koi8-r", "a/b/W-7.x.nc1: encoding \"koi8-r\": expected the name of an encoding"},
    };
    // clang-format on
    for (const Case& row : cases) {
        SCOPED_TRACE(row.encoding + ": " + row.mark);
        EXPECT_EQ(MarkOf(row.bytes, {kMark, row.encoding}), row.mark);
    }
    for (const auto& [bytes, line] : {
             std::pair("\xE4\n", 1), {"ST\n\xE4",      2},
               {"ST\r\n\n \xE4", 3}
    }) {
        const dstv::NcResult refused = dstv::ParseNc(bytes, L"x", {kMark, "utf-8"});
        const auto& error = std::get<dstv::NcError>(refused);
        EXPECT_EQ(error.describe().toUtf8(),
                  "x:" + std::to_string(line) +
                      ": text \"ä\": expected text in utf-8, which has no such byte");
        EXPECT_EQ(error.column, 0);
        EXPECT_TRUE(error.isOfEncoding);
    }
    // A file that begins with the mark of UTF-8 is that.
    const dstv::NcResult marked = dstv::ParseNc(
        "\xEF\xBB\xBF" + NcSample{.mark = utf8}.With("EN\n"), L"x", {kMark, "windows-1251"});
    EXPECT_EQ(std::get<dstv::NcPart>(marked).header.mark, L"Tr\u00E4ger");
}

TEST(NcEncoding, KnowsUtf8ToTheEndsOfItsRanges) {
    constexpr const char* kGood[] = {
        "\x01\x7F",
        "\xC2\x80",
        "\xDF\xBF",
        "\xE0\xA0\x80",
        "\xE0\xBF\xBF",
        "\xE1\x80\x80",
        "\xEC\xBF\xBF",
        "\xED\x80\x80",
        "\xED\x9F\xBF",
        "\xEE\x80\x80",
        "\xEF\xBF\xBF",
        "\xF0\x90\x80\x80",
        "\xF0\xBF\xBF\xBF",
        "\xF1\x80\x80\x80",
        "\xF3\xBF\xBF\xBF",
        "\xF4\x80\x80\x80",
        "\xF4\x8F\xBF\xBF",
    };
    constexpr const char* kBad[] = {
        "\x80",
        "\xBF",
        "\xC1\xBF",
        "\xC2\x7F",
        "\xC2\xC0",
        "\xE0\x9F\xBF",
        "\xE1\x80\x7F",
        "\xE1\x80\xC0",
        "\xED\xA0\x80",
        "\xF0\x8F\xBF\xBF",
        "\xF1\x80\x80\x7F",
        "\xF1\x80\x80\xC0",
        "\xF4\x90\x80\x80",
        "\xF5\x80\x80\x80",
        "\xC2",
        "\xE1\x80",
        "\xF1\x80\x80",
    };
    for (const char* good : kGood)
        EXPECT_TRUE(dstv::IsUtf8(std::string(good) + good)) << testing::PrintToString(good);
    for (const char* bad : kBad) {
        EXPECT_FALSE(dstv::IsUtf8(bad)) << testing::PrintToString(bad);
        EXPECT_FALSE(dstv::IsUtf8(std::string("A") + bad)) << testing::PrintToString(bad);
    }
}

/// A character that a page had twice, or a control character in a place of its own, would be a slip
/// of the table.
TEST(NcEncoding, NoPageHasACharacterTwice) {
    for (const codepages::CodePage& page : codepages::GetCodePages()) {
        std::set<char16_t> seen;
        for (const char16_t character : page.fromByte80) {
            EXPECT_GE(character, 0x80) << page.name;
            EXPECT_TRUE(character == codepages::kNoCharacter || seen.insert(character).second)
                << page.name << " " << static_cast<int>(character);
        }
    }
}

TEST(NcReader, TakesTheMarkFromWhereItStands) {
    using enum dstv::NcMarkSource;
    EXPECT_EQ(MarkOf("P1", {kMark}), "P1");
    EXPECT_EQ(MarkOf("P1", {kDrawing}), "Z-1");
    EXPECT_EQ(MarkOf("P1", {kPhase}), "1");
    EXPECT_EQ(MarkOf("P1", {kFileName}), "W-7.x");
    const auto markOf = [](const wchar_t* name, dstv::NcMarkSource source) {
        const dstv::NcResult result = dstv::ParseNc(
            NcSample{}.With("EN\n"), name, {source, std::string(dstv::kAutomaticEncoding), L"a/"});
        const auto* error = std::get_if<dstv::NcError>(&result);
        if (error == nullptr)
            return std::get<dstv::NcPart>(result).header.mark.toUtf8();
        EXPECT_EQ(error->line, 0);
        EXPECT_EQ(error->column, 0);
        return error->describe().toUtf8();
    };
    EXPECT_EQ(markOf(L"a/b/1.nc", kPath), "b/1");
    EXPECT_EQ(markOf(L"a/../../c\\1.nc", kPath), "c/1");
    EXPECT_EQ(markOf(L"1.nc", kPath), "1");
    EXPECT_EQ(markOf(L"b/a/.nc", kPath), "b/a/.nc");
    EXPECT_EQ(markOf(L"a.b/name", kFileName), "name");
    EXPECT_EQ(markOf(L"a\\n\x1b.nc", kFileName),
              "a\\n\x1B.nc: file \"a\\n\x1B.nc\": expected a name without control "
              "characters, for it is the mark");
}

}  // namespace
