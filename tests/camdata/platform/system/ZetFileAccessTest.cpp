#include "support/TempFolder.h"

#include "camdata/platform/system/ZetFileAccess.h"

#include <cerrno>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#if defined(__linux__)
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

using Operation = ZetFileFault::Operation;

class ZetFileAccessTest : public ::testing::Test {
  protected:
    TempFolder m_folder;
};

TEST_F(ZetFileAccessTest, WritesBytesWithoutTranslation) {
    ZetFileAccess file;
    ASSERT_TRUE(file.Open(m_folder.NameOf("Maß.txt"), L"w"));
    EXPECT_TRUE(file.Write(L"Träger\n\r\n"));
    EXPECT_TRUE(file.WriteFormat(L"%-6s|%.1f\n", L"öß", 2.5));
    EXPECT_EQ(file.GetPosition(), 23);
    EXPECT_TRUE(file.Close());
    EXPECT_FALSE(file.GetFault());
    EXPECT_EQ(m_folder.Read("Maß.txt"), "Tr\xC3\xA4ger\n\r\n\xC3\xB6\xC3\x9F    |2.5\n");

    ASSERT_TRUE(file.Open(m_folder.NameOf("new.txt"), L"a"));
    EXPECT_EQ(file.GetPosition(), 0);
    ASSERT_TRUE(file.Open(m_folder.NameOf("Maß.txt"), L"a"));
    EXPECT_EQ(file.GetPosition(), 23);
    file.Write(L"+");
    ASSERT_TRUE(file.Open(m_folder.NameOf("Maß.txt"), L"r"));
    EXPECT_EQ(file.GetName(), m_folder.NameOf("Maß.txt"));
    std::wstring text;
    for (wchar_t c = file.ReadChar(); c != ZetFileAccess::kEndOfFile; c = file.ReadChar())
        text += c;
    EXPECT_EQ(text, L"Träger\n\r\nöß    |2.5\n+");
    EXPECT_FALSE(file.GetFault());
}

TEST_F(ZetFileAccessTest, OverwritesFromAnEarlierPosition) {
    ZetFileAccess file;
    ASSERT_TRUE(file.Open(m_folder.NameOf("a.txt"), L"w"));
    file.Write(L"head\n");
    const std::int64_t start = file.GetPosition();
    file.Write(L"0123456789\n");
    const std::int64_t end = file.GetPosition();
    EXPECT_TRUE(file.SetPosition(start));
    EXPECT_EQ(file.GetPosition(), start);
    file.Write(L"###");
    EXPECT_TRUE(file.SetPosition(end));
    file.Write(L"tail");
    EXPECT_TRUE(file.SetPosition(0));
    file.Write(L"H");
    EXPECT_TRUE(file.Close());
    EXPECT_FALSE(file.Close());
    EXPECT_EQ(m_folder.Read("a.txt"), "Head\n###3456789\ntail");
}

TEST_F(ZetFileAccessTest, KnowsItsPositionBehindMoreThanItsBuffer) {
    constexpr std::int64_t kLines = 10000;
    ZetFileAccess file;
    ASSERT_TRUE(file.Open(m_folder.NameOf("big.txt"), L"w"));
    for (std::int64_t i = 0; i < kLines; ++i) {
        ASSERT_EQ(file.GetPosition(), 10 * i);
        ASSERT_TRUE(file.Write(L"012345678\n"));
    }
    EXPECT_TRUE(file.Write(ZetString(L'x', 10 * kLines)));
    EXPECT_TRUE(file.Close());
    EXPECT_EQ(m_folder.Read("big.txt").size(), 20U * kLines);
}

TEST_F(ZetFileAccessTest, ReadsCharactersAcrossItsBufferAndBadBytes) {
    const std::string tail = "\xE2\x82\xAC\xE4\xF0\x9F\x94\xA9";
    m_folder.Write("long.txt", std::string(64 * 1024 - 1, 'x') + tail);
    ZetFileAccess file;
    ASSERT_TRUE(file.Open(m_folder.NameOf("long.txt"), L"r"));
    for (int i = 0; i < 64 * 1024 - 1; ++i)
        ASSERT_EQ(file.ReadChar(), L'x');
    EXPECT_EQ(file.ReadChar(), L'\x20AC');
    EXPECT_EQ(file.GetPosition(), 64 * 1024 + 2);
    EXPECT_EQ(file.ReadChar(), L'\xFFFD');
    std::wstring last;
    for (wchar_t c = file.ReadChar(); c != ZetFileAccess::kEndOfFile; c = file.ReadChar())
        last += c;
    EXPECT_EQ(last, L"\U0001F529");
    // Where a character comes as two halves, the second one is forgotten.
    EXPECT_TRUE(file.SetPosition(64 * 1024 + 3));
    EXPECT_EQ(file.ReadChar(), last.front());
    EXPECT_TRUE(file.SetPosition(64 * 1024 - 1));
    EXPECT_EQ(file.ReadChar(), L'\x20AC');
    EXPECT_FALSE(file.SetPosition(-1));
    EXPECT_EQ(file.ReadChar(), ZetFileAccess::kEndOfFile);

    for (std::size_t inside = 1; inside < 4; ++inside) {
        m_folder.Write("parted.txt", std::string(64 * 1024 - inside, 'x') + "\xF0\x9F\x94\xA9");
        ASSERT_TRUE(file.Open(m_folder.NameOf("parted.txt"), L"r"));
        for (std::size_t i = 0; i < 64 * 1024 - inside; ++i)
            ASSERT_EQ(file.ReadChar(), L'x');
        EXPECT_EQ(file.ReadChar(), L"\U0001F529"[0]) << inside;
    }
}

TEST_F(ZetFileAccessTest, KeepsTheFirstFault) {
    ZetFileAccess closed;
    EXPECT_FALSE(closed.IsOpen());
    EXPECT_EQ(closed.GetPosition(), -1);
    EXPECT_EQ(closed.ReadChar(), ZetFileAccess::kEndOfFile);
    ASSERT_TRUE(closed.GetFault());
    EXPECT_EQ(closed.GetFault()->operation, Operation::kRead);
    EXPECT_EQ(closed.GetFault()->systemError, 0);
    ZetFileAccess neverOpen;
    EXPECT_FALSE(neverOpen.SetPosition(0));
    EXPECT_EQ(neverOpen.GetFault()->operation, Operation::kSeek);
    EXPECT_EQ(neverOpen.GetFault()->systemError, 0);
    ZetFileAccess file;
    EXPECT_FALSE(file.Write(L"nowhere"));
    ASSERT_TRUE(file.GetFault());
    EXPECT_EQ(file.GetFault()->operation, Operation::kWrite);
    EXPECT_EQ(file.GetFault()->systemError, 0);

    EXPECT_FALSE(file.Open(m_folder.NameOf("missing.txt"), L"r"));
    EXPECT_EQ(file.ReadChar(), ZetFileAccess::kEndOfFile);
    EXPECT_EQ(file.GetFault()->operation, Operation::kOpen);
    EXPECT_EQ(file.GetFault()->systemError, ENOENT);
    EXPECT_FALSE(file.Close());

    EXPECT_FALSE(file.Open(m_folder.NameOf("x.txt"), L"rw"));
    EXPECT_FALSE(file.Open(m_folder.NameOf("x.txt") + ZetString(L'\0', 1) + L"y", L"w"));
    EXPECT_FALSE(std::filesystem::exists(m_folder.PathOf("x.txt")));
    EXPECT_FALSE(file.Open(m_folder.NameOf(""), L"r"));
    EXPECT_FALSE(file.IsOpen());
    EXPECT_TRUE(file.Open(m_folder.NameOf("x.txt"), L"w"));
    EXPECT_FALSE(file.GetFault());
    EXPECT_FALSE(file.SetPosition(-1));
    EXPECT_FALSE(file.Write(L"behind a fault") || file.SetPosition(0) || file.Close());
    ASSERT_TRUE(file.Open(m_folder.NameOf("x.txt"), L"r"));
    EXPECT_FALSE(file.Write(L"read only"));
}

#if defined(__linux__)
/// Of a program that has no standard input the first file has the number 0.
TEST_F(ZetFileAccessTest, OpensAFileAsNumber0) {
    const int input = dup(0);
    close(0);
    ZetFileAccess file;
    EXPECT_FALSE(file.Open(m_folder.NameOf(""), L"r"));
    EXPECT_TRUE(file.Open(m_folder.NameOf("x.txt"), L"w"));
    EXPECT_TRUE(file.Write(L"x"));
    EXPECT_TRUE(file.IsOpen());
    EXPECT_TRUE(file.Close());
    EXPECT_EQ(m_folder.Read("x.txt"), "x");
    ASSERT_TRUE(file.Open(m_folder.NameOf("x.txt"), L"r"));
    close(0);
    EXPECT_FALSE(file.Close()) << "somebody else has closed it";
    dup2(input, 0);
    close(input);
}

TEST_F(ZetFileAccessTest, ReadsAPipeThatGivesItsBytesInUnevenPieces) {
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_DIRECT), 0);
    ASSERT_GE(fcntl(ends[1], F_SETPIPE_SZ, 1 << 17), 1 << 17);
    // What is written with O_DIRECT is read as a piece of its own, the rest in one.
    ASSERT_EQ(write(ends[1], "\xE2", 1), 1);
    ASSERT_EQ(fcntl(ends[1], F_SETFL, 0), 0);
    const std::string rest = "\x82\xAC" + std::string(1 << 16, 'x');
    ASSERT_EQ(write(ends[1], rest.data(), rest.size()), static_cast<ssize_t>(rest.size()));
    close(ends[1]);
    ZetFileAccess file;
    ASSERT_TRUE(file.Open(ZetString::format(L"/proc/self/fd/%d", ends[0]), L"r"));
    EXPECT_EQ(file.ReadChar(), L'\x20AC');
    for (int i = 0; i < 1 << 16; ++i)
        ASSERT_EQ(file.ReadChar(), L'x');
    EXPECT_EQ(file.ReadChar(), ZetFileAccess::kEndOfFile);
    EXPECT_FALSE(file.GetFault());
    close(ends[0]);
}
#endif

}  // namespace
