#include <string>

#include <gtest/gtest.h>

#include "CopyOutcomePrinting.h"
#include "CopyTestFiles.h"
#include "QL/CopySetting.h"
#include "QL/Engine/FileCopier.h"
#include "support/ScratchMount.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using namespace QL::Engine;
using QL::IngestTask::kVerifyBitByBit;
using QL::IngestTask::kVerifyMD5;

constexpr std::size_t kSmallChunk = 64 * 1024;

// Where direct I/O is refused, read-back drops the cache instead (the service's tests see the
// work disk): each mode that reads back still checks the copy, which keeps the source's time.
TEST(FileCopierVerify, ReadBackWhereDirectIoIsRefused) {
    TempTree tree;
    ScratchMount ramfs(tree.NativePath("ramfs"), "ramfs", "");
    if (!ramfs.Mounted())
        GTEST_SKIP() << ramfs.Why();
    if (TakesDirectIo(ramfs.Folder()))
        GTEST_SKIP() << "ramfs takes O_DIRECT on this kernel";
    tree.MakeFileOfSize("card/A001.MOV", 5 * kSmallChunk + 123);
    const std::string source = tree.NativePath("card/A001.MOV");
    SetModificationTime(source, 1500000000, 123456789);
    for (const std::uint32_t mode : {kVerifyMD5, kVerifyBitByBit}) {
        SCOPED_TRACE("verify mode " + std::to_string(mode));
        const std::string target = ramfs.Folder() + "/mode" + std::to_string(mode) + "/A001.MOV";
        CopyControl control;
        const auto outcomes = FileCopier(kSmallChunk).CopyFile(source, {{target, 0}}, mode, control, {});
        EXPECT_EQ(outcomes[0].status, CopyStatus::Copied) << outcomes[0].reason;
        EXPECT_EQ(outcomes[0].verifiedBy, VerifiedBy::DroppedCache);
        if (mode == kVerifyMD5) {
            EXPECT_EQ(outcomes[0].checksum, Md5Hex(source));
        }
        EXPECT_EQ(outcomes[0].checksumAlgorithm, mode == kVerifyMD5 ? "md5" : "xxh128");
        EXPECT_TRUE(SameContent(source, target));
        EXPECT_EQ(ModificationTime(target).tv_sec, 1500000000);
        EXPECT_EQ(ModificationTime(target).tv_nsec, 123456789);
    }
}

// Sizes around the alignment and the chunk: the unaligned end of a file goes a different way
// from its aligned body, and an empty file has neither.
TEST(FileCopierVerify, OddSizesCopyExactly) {
    const std::uint64_t sizes[] = {
        0, 1, 4095, 4096, 4097, kSmallChunk - 1, kSmallChunk, kSmallChunk + 1, 3 * kSmallChunk + 5};
    for (const std::uint32_t mode : {kVerifyMD5, kVerifyBitByBit}) {
        for (const std::uint64_t size : sizes) {
            SCOPED_TRACE("mode " + std::to_string(mode) + ", size " + std::to_string(size));
            TempTree tree;
            tree.MakeFileOfSize("card/clip.bin", size);
            const std::string source = tree.NativePath("card/clip.bin");
            const std::string target = tree.NativePath("out/clip.bin");
            CopyControl control;
            const auto outcomes = FileCopier(kSmallChunk).CopyFile(source, {{target, 0}}, mode, control, {});
            EXPECT_EQ(outcomes[0].status, CopyStatus::Copied) << outcomes[0].reason;
            EXPECT_EQ(outcomes[0].bytes, size);
            EXPECT_TRUE(SameContent(source, target));
        }
    }
}

} // namespace
} // namespace igd::test
