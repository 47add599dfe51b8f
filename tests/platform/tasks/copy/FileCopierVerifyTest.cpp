#include <filesystem>
#include <string>
#include <vector>

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
using QL::IngestTask::kVerifyFileSize;
using QL::IngestTask::kVerifyMD5;
using QL::IngestTask::kVerifyNone;

constexpr std::size_t kSmallChunk = 64 * 1024;

// Every verify mode on the filesystem that holds folder: the copy is exact, keeps the source's
// time, and says how it was checked. The read-back method is whatever the filesystem allows,
// asked independently.
void ExpectEveryModeOn(const std::string& folder) {
    TempTree tree;
    tree.MakeFileOfSize("card/A001.MOV", 5 * kSmallChunk + 123);
    const std::string source = tree.NativePath("card/A001.MOV");
    SetModificationTime(source, 1500000000, 123456789);
    const VerifiedBy readBack =
        TakesDirectIo(folder) ? VerifiedBy::DirectRead : VerifiedBy::DroppedCache;
    const std::string md5 = Md5Hex(source);

    struct Case {
        std::uint32_t mode;
        VerifiedBy verifiedBy;
        std::string checksum;
    };
    const Case cases[] = {
        {kVerifyMD5, readBack, md5},
        {kVerifyFileSize, VerifiedBy::Size, ""},
        {kVerifyBitByBit, readBack, ""},
        {kVerifyNone, VerifiedBy::NotVerified, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE("verify mode " + std::to_string(c.mode));
        const std::string dir = folder + "/mode" + std::to_string(c.mode);
        const std::string target = dir + "/A001.MOV";
        CopyControl control;
        const auto outcomes = FileCopier(kSmallChunk).CopyFile(source, {{target, 0}}, c.mode, control, {});
        ASSERT_EQ(outcomes.size(), 1u);
        EXPECT_EQ(outcomes[0].status, CopyStatus::Copied) << outcomes[0].reason;
        EXPECT_EQ(outcomes[0].finalPath, target);
        EXPECT_EQ(outcomes[0].verifiedBy, c.verifiedBy);
        EXPECT_EQ(outcomes[0].checksum, c.checksum);
        EXPECT_EQ(outcomes[0].bytes, 5 * kSmallChunk + 123);
        EXPECT_TRUE(SameContent(source, target));
        EXPECT_EQ(ModificationTime(target).tv_sec, 1500000000);
        EXPECT_EQ(ModificationTime(target).tv_nsec, 123456789);
        EXPECT_EQ(NamesIn(dir), std::vector<std::string>{"A001.MOV"});
    }
}

TEST(FileCopierVerify, EveryModeOnTheWorkDisk) {
    TempTree destination;
    ExpectEveryModeOn(destination.NativePath());
}

TEST(FileCopierVerify, EveryModeWhereDirectIoIsRefused) {
    TempTree tree;
    ScratchMount ramfs(tree.NativePath("ramfs"), "ramfs", "");
    if (!ramfs.Mounted())
        GTEST_SKIP() << ramfs.Why();
    if (TakesDirectIo(ramfs.Folder()))
        GTEST_SKIP() << "ramfs takes O_DIRECT on this kernel";
    ExpectEveryModeOn(ramfs.Folder());
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

// A file long enough in small chunks for the check to run behind the writing, region by region:
// each copy is exact and the digest covers every byte once, in order. (The service's tests copy to
// two targets in the default chunks.)
TEST(FileCopierVerify, LongFilesToTwoTargets) {
    TempTree tree;
    constexpr std::uint64_t kSize = 40 * kSmallChunk + 333;
    tree.MakeFileOfSize("card/A002.MOV", kSize);
    const std::string source = tree.NativePath("card/A002.MOV");
    for (const std::uint32_t mode : {kVerifyMD5, kVerifyBitByBit}) {
        SCOPED_TRACE("mode " + std::to_string(mode));
        const std::string a = tree.NativePath("main" + std::to_string(mode) + "/A002.MOV");
        const std::string b = tree.NativePath("backup" + std::to_string(mode) + "/A002.MOV");
        CopyControl control;
        for (const auto& outcome : FileCopier(kSmallChunk).CopyFile(source, {{a, 0}, {b, 0}}, mode, control, {})) {
            EXPECT_EQ(outcome.status, CopyStatus::Copied) << outcome.reason;
            EXPECT_EQ(outcome.bytes, kSize);
            EXPECT_EQ(outcome.checksum, mode == kVerifyMD5 ? Md5Hex(source) : "");
        }
        EXPECT_TRUE(SameContent(source, a));
        EXPECT_TRUE(SameContent(source, b));
    }
}

// Damage done to a flushed temporary, as a failing medium would: each mode catches what it can,
// the damaged copy never gets its final name, and the other target is unaffected.
TEST(FileCopierVerify, DamageOnTheMediumIsCaughtByWhatEachModeChecks) {
    constexpr std::uint64_t kSize = 3 * kSmallChunk + 1000;
    constexpr std::uint64_t kFlipped = kSmallChunk + 4321;
    struct Case {
        const char* damage;
        std::uint32_t mode;
        std::string reason; // empty: the damage goes unnoticed by this mode
    };
    const Case cases[] = {
        {"flip", kVerifyMD5, "verification failed: MD5 differs"},
        {"flip", kVerifyBitByBit, "verification failed: contents differ at byte " + std::to_string(kFlipped)},
        {"flip", kVerifyFileSize, ""},
        {"truncate", kVerifyMD5, "verification failed: MD5 differs"},
        {"truncate", kVerifyBitByBit, "verification failed: sizes differ"},
        {"truncate", kVerifyFileSize, "verification failed: sizes differ"},
        {"append", kVerifyBitByBit, "verification failed: sizes differ"},
        {"append", kVerifyFileSize, "verification failed: sizes differ"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.damage) + ", mode " + std::to_string(c.mode));
        TempTree tree;
        tree.MakeFileOfSize("card/A001.MOV", kSize);
        const std::string source = tree.NativePath("card/A001.MOV");
        const std::string damaged = tree.NativePath("damaged/A001.MOV");
        const std::string intact = tree.NativePath("intact/A001.MOV");
        CopyHooks hooks;
        const std::string damage = c.damage;
        hooks.afterWrite = [&](const std::string& temporary) {
            if (temporary.find("/damaged/") == std::string::npos)
                return;
            if (damage == "flip")
                FlipByte(temporary, kFlipped);
            else if (damage == "truncate")
                std::filesystem::resize_file(temporary, kSize - 1);
            else
                std::filesystem::resize_file(temporary, kSize + 1);
        };
        CopyControl control;
        const auto outcomes =
            FileCopier(kSmallChunk, hooks).CopyFile(source, {{damaged, 0}, {intact, 0}}, c.mode, control, {});
        EXPECT_EQ(outcomes[1].status, CopyStatus::Copied) << outcomes[1].reason;
        EXPECT_TRUE(SameContent(source, intact));
        if (c.reason.empty()) {
            EXPECT_EQ(outcomes[0].status, CopyStatus::Copied);
            continue;
        }
        EXPECT_EQ(outcomes[0].status, CopyStatus::Failed);
        EXPECT_EQ(outcomes[0].reason, c.reason);
        EXPECT_EQ(outcomes[0].finalPath, "");
        EXPECT_EQ(outcomes[0].checksum, "");
        EXPECT_TRUE(NamesIn(tree.NativePath("damaged")).empty());
    }
}

} // namespace
} // namespace igd::test
