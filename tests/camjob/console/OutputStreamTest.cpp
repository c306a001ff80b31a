#include "camjob/console/OutputStream.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

class ChunkStream : public camjob::OutputStream {
  public:
    std::vector<std::string> chunks;

  private:
    std::error_code WriteBytes(std::string_view bytes) override {
        chunks.emplace_back(bytes);
        return {};
    }
};

TEST(OutputStream, HandsOverWholeLines) {
    ChunkStream stream;
    std::string all;
    for (int i = 0; i < 10'000; ++i) {
        const std::string line = "\xE2\x88\x85 " + std::to_string(i) + " mm\n";
        stream.Write(line.substr(0, 2));
        stream.Write(line.substr(2));
        all += line;
    }
    ASSERT_GE(stream.chunks.size(), 1u);
    for (const std::string& chunk : stream.chunks)
        EXPECT_EQ(chunk.back(), '\n');
    EXPECT_TRUE(stream.Flush());
    std::string joined;
    for (const std::string& chunk : stream.chunks)
        joined += chunk;
    EXPECT_EQ(joined, all);
}

}  // namespace
