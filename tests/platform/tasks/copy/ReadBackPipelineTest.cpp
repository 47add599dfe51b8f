#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CopyTestFiles.h"
#include "platform/tasks/copy/src/MediumReader.h"
#include "platform/tasks/copy/src/ReadBackPipeline.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using namespace QL::Engine;

constexpr std::size_t kPiece = 2 * 4096;
constexpr std::size_t kDepth = 4;

// What a consumer saw: the bytes in the order handed over, and where each piece said it was.
struct Seen {
    std::string bytes;
    std::vector<std::uint64_t> offsets;
    int calls = 0;
};

class ReadBackPipelineTest : public ::testing::Test {
protected:
    void SetUp() override {
        // Many pieces per depth, and an end that is neither on a piece nor on a block.
        tree_.MakeFileOfSize("copy.bin", 37 * kPiece + 1234);
        path_ = tree_.NativePath("copy.bin");
        whole_ = ReadFileBytes(path_);
        ASSERT_EQ(reader_.Open(path_), 0);
    }

    ReadBackPipeline::Consumer Into(Seen& seen, int stopAfter = -1) {
        return [&seen, stopAfter](const std::byte* data, const IoResult& read, std::uint64_t offset) {
            EXPECT_EQ(read.error, 0);
            seen.bytes.append(reinterpret_cast<const char*>(data), read.bytes);
            seen.offsets.push_back(offset);
            return ++seen.calls != stopAfter;
        };
    }

    TempTree tree_;
    std::string path_;
    std::string whole_;
    MediumReader reader_;
};

// Reads finish in any order across the readers; the consumer must still see the range in order,
// each byte once, or a digest of it would be wrong.
TEST_F(ReadBackPipelineTest, HandsARangeOverInOrderAndWhole) {
    ReadBackPipeline pipeline(reader_, kPiece, kDepth);
    const std::uint64_t from = 3 * kPiece;
    const std::uint64_t to = 30 * kPiece + 4096;
    Seen seen;
    EXPECT_TRUE(pipeline.Run(from, to, /*toEnd=*/false, Into(seen)));
    EXPECT_EQ(seen.bytes, whole_.substr(from, to - from));
    ASSERT_EQ(seen.offsets.size(), 28u);
    for (std::size_t i = 0; i < seen.offsets.size(); ++i)
        EXPECT_EQ(seen.offsets[i], from + i * kPiece);

    Seen empty;
    EXPECT_TRUE(pipeline.Run(kPiece, kPiece, /*toEnd=*/false, Into(empty)));
    EXPECT_EQ(empty.calls, 0);
}

TEST_F(ReadBackPipelineTest, ReadsToTheEndOfTheFileAndStopsAtTheShortPiece) {
    ReadBackPipeline pipeline(reader_, kPiece, kDepth);
    Seen seen;
    EXPECT_TRUE(pipeline.Run(kPiece, 0, /*toEnd=*/true, Into(seen)));
    EXPECT_EQ(seen.bytes, whole_.substr(kPiece));
    EXPECT_EQ(seen.calls, 37); // 36 whole pieces and the short one; nothing past the end
}

// A verifier stops at a failed check or a cancel, then may be asked again (it is not, today, but
// the trailing check runs the same pipeline range after range).
TEST_F(ReadBackPipelineTest, StopsWhenTheConsumerSaysSoAndCanRunAgain) {
    ReadBackPipeline pipeline(reader_, kPiece, kDepth);
    Seen stopped;
    EXPECT_FALSE(pipeline.Run(0, whole_.size(), /*toEnd=*/false, Into(stopped, 5)));
    EXPECT_EQ(stopped.calls, 5);
    EXPECT_EQ(stopped.bytes, whole_.substr(0, 5 * kPiece));

    Seen rest;
    EXPECT_TRUE(pipeline.Run(5 * kPiece, 0, /*toEnd=*/true, Into(rest)));
    EXPECT_EQ(stopped.bytes + rest.bytes, whole_);
}

} // namespace
} // namespace igd::test
