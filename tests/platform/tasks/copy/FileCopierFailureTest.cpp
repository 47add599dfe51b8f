#include <sys/mount.h>
#include <unistd.h>

#include <cerrno>
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
using QL::IngestTask::kVerifyMD5;
using QL::IngestTask::kVerifyNone;

constexpr std::size_t kSmallChunk = 64 * 1024;

// A disk error on one of three targets fails that one with the system's words for it and leaves
// the other two to finish; the failed one leaves nothing behind.
TEST(FileCopierFailures, AWriteErrorFailsOnlyItsTarget) {
    const struct {
        int error;
        const char* reason;
    } cases[] = {
        {ENOSPC, "could not write the copy: No space left on device"},
        {EIO, "could not write the copy: Input/output error"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        TempTree tree;
        tree.MakeFileOfSize("card/A001.MOV", 6 * kSmallChunk + 99);
        const std::string source = tree.NativePath("card/A001.MOV");
        CopyHooks hooks;
        hooks.failWrite = [&](const std::string& temporary, std::uint64_t offset) {
            return temporary.find("/b/") != std::string::npos && offset >= 2 * kSmallChunk ? c.error : 0;
        };
        const std::vector<CopyTarget> targets = {{tree.NativePath("a/A001.MOV"), 0},
                                                 {tree.NativePath("b/A001.MOV"), 0},
                                                 {tree.NativePath("c/A001.MOV"), 0}};
        CopyControl control;
        const auto outcomes =
            FileCopier(kSmallChunk, hooks).CopyFile(source, targets, kVerifyMD5, control, {});
        EXPECT_EQ(outcomes[0].status, CopyStatus::Copied) << outcomes[0].reason;
        EXPECT_EQ(outcomes[1].status, CopyStatus::Failed);
        EXPECT_EQ(outcomes[1].reason, c.reason);
        EXPECT_EQ(outcomes[2].status, CopyStatus::Copied) << outcomes[2].reason;
        EXPECT_TRUE(SameContent(source, targets[0].path));
        EXPECT_TRUE(SameContent(source, targets[2].path));
        EXPECT_TRUE(NamesIn(tree.NativePath("b")).empty());
    }
}

// As root, permissions do not stop a write; a read-only mount does.
TEST(FileCopierFailures, AReadOnlyDestination) {
    TempTree tree;
    ScratchMount readOnly(tree.NativePath("ro"), "tmpfs", "size=1m", MS_RDONLY);
    if (!readOnly.Mounted())
        GTEST_SKIP() << readOnly.Why();
    tree.MakeFileOfSize("card/A001.MOV", 1000);
    const std::string source = tree.NativePath("card/A001.MOV");
    CopyControl control;
    const auto outcomes =
        FileCopier(kSmallChunk)
            .CopyFile(source,
                      {{readOnly.Folder() + "/A001.MOV", 0}, {readOnly.Folder() + "/day/A001.MOV", 0}},
                      kVerifyMD5, control, {});
    EXPECT_EQ(outcomes[0].status, CopyStatus::Failed);
    EXPECT_EQ(outcomes[0].reason, "could not create the copy: Read-only file system");
    EXPECT_EQ(outcomes[1].status, CopyStatus::Failed);
    EXPECT_EQ(outcomes[1].reason, "could not create the folder: Read-only file system");
}

TEST(FileCopierFailures, ASourceThatCannotBeOpenedFailsEveryTargetAndCreatesNothing) {
    TempTree tree;
    tree.MakeFolder("card/CLIP");
    const struct {
        const char* source;
        const char* reason;
    } cases[] = {
        {"card/missing.MOV", "source could not be read: No such file or directory"},
        {"card/CLIP", "source could not be read: Is a directory"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.source);
        CopyControl control;
        const auto outcomes = FileCopier(kSmallChunk)
                                  .CopyFile(tree.NativePath(c.source),
                                            {{tree.NativePath("a/x"), 0}, {tree.NativePath("b/x"), 2}},
                                            kVerifyMD5, control, {});
        for (const auto& outcome : outcomes) {
            EXPECT_EQ(outcome.status, CopyStatus::Failed);
            EXPECT_EQ(outcome.reason, c.reason);
        }
        EXPECT_FALSE(Exists(tree.NativePath("a")));
        EXPECT_FALSE(Exists(tree.NativePath("b")));
    }
}

// A source cut short while it is read (a card pulled, a file still being written) is no source:
// every target fails, whatever its verification, and no final name appears.
TEST(FileCopierFailures, ASourceThatShrinksWhileReadFailsEveryTarget) {
    for (const std::uint32_t mode : {kVerifyMD5, kVerifyBitByBit, kVerifyNone}) {
        SCOPED_TRACE("mode " + std::to_string(mode));
        TempTree tree;
        tree.MakeFileOfSize("card/A001.MOV", 8 * kSmallChunk);
        const std::string source = tree.NativePath("card/A001.MOV");
        const auto shrink = [&](std::uint64_t done) {
            if (done == kSmallChunk)
                ::truncate(source.c_str(), 3 * kSmallChunk);
        };
        CopyControl control;
        const auto outcomes =
            FileCopier(kSmallChunk)
                .CopyFile(source, {{tree.NativePath("a/A001.MOV"), 0}, {tree.NativePath("b/A001.MOV"), 0}},
                          mode, control, shrink);
        for (const auto& outcome : outcomes) {
            EXPECT_EQ(outcome.status, CopyStatus::Failed);
            EXPECT_EQ(outcome.reason, "source could not be read: it changed while it was being read");
        }
        EXPECT_TRUE(NamesIn(tree.NativePath("a")).empty());
        EXPECT_TRUE(NamesIn(tree.NativePath("b")).empty());
    }
}

} // namespace
} // namespace igd::test
