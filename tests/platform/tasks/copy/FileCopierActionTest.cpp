#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CopyOutcomePrinting.h"
#include "CopyTestFiles.h"
#include "QL/CopySetting.h"
#include "QL/Engine/FileCopier.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using namespace QL::Engine;
using QL::IngestTask::kVerifyMD5;

constexpr std::size_t kSmallChunk = 64 * 1024;

// A card with one clip and a destination that may hold files already.
class FileCopierActions : public ::testing::Test {
protected:
    FileCopierActions() {
        tree_.MakeFileOfSize("card/A001.MOV", 2 * kSmallChunk + 17);
        source_ = tree_.NativePath("card/A001.MOV");
    }

    std::string Destination(const std::string& name = {}) const {
        return tree_.NativePath(name.empty() ? "dest" : "dest/" + name);
    }

    CopyOutcome CopyTo(const std::string& target, std::int32_t action, CopyHooks hooks = {}) {
        CopyControl control;
        return FileCopier(kSmallChunk, std::move(hooks))
            .CopyFile(source_, {{target, action}}, kVerifyMD5, control, {})[0];
    }

    TempTree tree_;
    std::string source_;
};

TEST_F(FileCopierActions, NothingExpectedMeetingAFileFailsAndTouchesNothing) {
    tree_.MakeFile("dest/A001.MOV", "the editor's file");
    SetModificationTime(Destination("A001.MOV"), 1000, 0);
    const CopyOutcome outcome = CopyTo(Destination("A001.MOV"), QL::kCopyActionNone);
    EXPECT_EQ(outcome.status, CopyStatus::Failed);
    EXPECT_EQ(outcome.reason, "target exists");
    EXPECT_EQ(outcome.finalPath, "");
    EXPECT_EQ(ReadFileBytes(Destination("A001.MOV")), "the editor's file");
    EXPECT_EQ(ModificationTime(Destination("A001.MOV")).tv_sec, 1000);
    EXPECT_EQ(NamesIn(Destination()), std::vector<std::string>{"A001.MOV"});
}

// The existing-file check happens twice: before copying and atomically at the rename, so a file
// that appears while the copy runs is not replaced either.
TEST_F(FileCopierActions, AFileThatAppearsDuringTheCopyIsNeverReplaced) {
    CopyHooks hooks;
    hooks.afterWrite = [&](const std::string&) { tree_.MakeFile("dest/A001.MOV", "arrived meanwhile"); };
    const CopyOutcome outcome = CopyTo(Destination("A001.MOV"), QL::kCopyActionNone, hooks);
    EXPECT_EQ(outcome.status, CopyStatus::Failed);
    EXPECT_EQ(outcome.reason, "target exists");
    EXPECT_EQ(ReadFileBytes(Destination("A001.MOV")), "arrived meanwhile");
    EXPECT_EQ(NamesIn(Destination()), std::vector<std::string>{"A001.MOV"});
}

// Keep both takes the name itself when free, else the first free numbered name, in the form a
// user expects; the files already there stay as they were.
TEST_F(FileCopierActions, KeepBothWritesUnderTheFirstFreeName) {
    const struct {
        std::vector<const char*> existing;
        const char* target;
        const char* expected;
    } cases[] = {
        {{}, "A001.MOV", "A001.MOV"},
        {{"A001.MOV", "A001 (1).MOV"}, "A001.MOV", "A001 (2).MOV"},
        {{"README"}, "README", "README (1)"},
        {{".hidden"}, ".hidden", ".hidden (1)"},
        {{"clip.tar.gz"}, "clip.tar.gz", "clip.tar (1).gz"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.target);
        std::filesystem::remove_all(Destination());
        for (const char* existing : c.existing)
            tree_.MakeFile(std::string("dest/") + existing, existing);
        const CopyOutcome outcome = CopyTo(Destination(c.target), QL::kCopyActionKeepBoth);
        EXPECT_EQ(outcome.status, CopyStatus::Copied) << outcome.reason;
        EXPECT_EQ(outcome.finalPath, Destination(c.expected));
        EXPECT_TRUE(SameContent(source_, Destination(c.expected)));
        for (const char* existing : c.existing)
            EXPECT_EQ(ReadFileBytes(Destination(existing)), existing);
        EXPECT_EQ(NamesIn(Destination()).size(), c.existing.size() + 1);
    }
}

TEST_F(FileCopierActions, ReplaceSwapsInTheNewCopyOnlyOnceItIsProven) {
    tree_.MakeFile("dest/A001.MOV", "old take");
    CopyHooks damaging;
    damaging.afterWrite = [](const std::string& temporary) { FlipByte(temporary, 5); };
    const CopyOutcome failed = CopyTo(Destination("A001.MOV"), QL::kCopyActionReplace, damaging);
    EXPECT_EQ(failed.status, CopyStatus::Failed);
    EXPECT_EQ(ReadFileBytes(Destination("A001.MOV")), "old take");
    EXPECT_EQ(NamesIn(Destination()), std::vector<std::string>{"A001.MOV"});

    const CopyOutcome replaced = CopyTo(Destination("A001.MOV"), QL::kCopyActionReplace);
    EXPECT_EQ(replaced.status, CopyStatus::Copied) << replaced.reason;
    EXPECT_EQ(replaced.finalPath, Destination("A001.MOV"));
    EXPECT_TRUE(SameContent(source_, Destination("A001.MOV")));
}

// A crash leaves a temporary behind; a new copy must neither trip over it nor take it for its own.
TEST_F(FileCopierActions, ALeftoverTemporaryIsNeitherReusedNorAnObstacle) {
    const std::string leftover = FileCopier::TemporaryPathFor(Destination("A001.MOV"));
    tree_.MakeFile("dest/" + leftover.substr(leftover.rfind('/') + 1), "half a clip");
    const CopyOutcome outcome = CopyTo(Destination("A001.MOV"), QL::kCopyActionNone);
    EXPECT_EQ(outcome.status, CopyStatus::Copied) << outcome.reason;
    EXPECT_TRUE(SameContent(source_, Destination("A001.MOV")));
    EXPECT_EQ(ReadFileBytes(leftover), "half a clip");
}

TEST_F(FileCopierActions, ValuesThatAreNoActionModeOrPathAreFaultsOfTheCaller) {
    CopyControl control;
    const FileCopier copier(kSmallChunk);
    EXPECT_THROW(copier.CopyFile(source_, {{Destination("A001.MOV"), 4}}, kVerifyMD5, control, {}),
                 std::invalid_argument);
    EXPECT_THROW(copier.CopyFile(source_, {{Destination("A001.MOV"), 0}}, 7, control, {}),
                 std::invalid_argument);
    EXPECT_THROW(copier.CopyFolder(tree_.NativePath("card"), {{Destination("card"), -1}}),
                 std::invalid_argument);
    EXPECT_THROW(copier.CopyFile(source_, {{"", 0}}, kVerifyMD5, control, {}), std::invalid_argument);
    EXPECT_THROW(copier.CopyFile(source_, {{Destination() + "/", 0}}, kVerifyMD5, control, {}),
                 std::invalid_argument);
    EXPECT_FALSE(Exists(Destination()));
}

TEST(TemporaryNames, HiddenBesideTheTargetAndRecognisable) {
    const std::string temporary = FileCopier::TemporaryPathFor("/media/dest/A001.MOV");
    ASSERT_EQ(temporary.rfind("/media/dest/.", 0), 0u) << temporary;
    const std::string name = temporary.substr(temporary.rfind('/') + 1);
    EXPECT_NE(name.find("A001.MOV"), std::string::npos) << name;
    EXPECT_TRUE(FileCopier::IsTemporaryName(name));

    for (const char* ordinary : {"A001.MOV", ".hidden", ".A001.MOV", "A001.MOV.partial", ""})
        EXPECT_FALSE(FileCopier::IsTemporaryName(ordinary)) << ordinary;

    // The longest name a folder takes still has a temporary that fits, cut between characters
    // (the leading "a" puts the cut in the middle of a two-byte character).
    std::string longName = "a";
    while (longName.size() < 250)
        longName += "é";
    const std::string longTemporary = FileCopier::TemporaryPathFor("/d/" + longName);
    const std::string longTemporaryName = longTemporary.substr(3);
    EXPECT_LE(longTemporaryName.size(), 255u);
    EXPECT_TRUE(FileCopier::IsTemporaryName(longTemporaryName));
    EXPECT_NE(longTemporaryName.find(std::string("é") + "."), std::string::npos) << longTemporaryName;
}

// Folder entries: a new folder takes the source's time, one already there is merged into as it is
// (the service's tests see what lands inside), and a file in the way is never replaced.
TEST_F(FileCopierActions, FolderEntries) {
    tree_.MakeFolder("card/CLIP");
    SetModificationTime(tree_.NativePath("card/CLIP"), 1400000000, 5);
    tree_.MakeFolder("dest/OLD");
    SetModificationTime(Destination("OLD"), 1000, 0);
    tree_.MakeFile("dest/FILE", "a file, not a folder");
    const struct {
        const char* target;
        std::int32_t action;
        CopyStatus status;
        const char* finalName; // "" for no final path
        std::int64_t time;     // of the final folder
    } cases[] = {
        {"day/CLIP", QL::kCopyActionNone, CopyStatus::Copied, "day/CLIP", 1400000000},
        {"OLD", QL::kCopyActionNone, CopyStatus::Copied, "OLD", 1000},
        {"OLD", QL::kCopyActionReplace, CopyStatus::Copied, "OLD", 1000},
        {"OLD", QL::kCopyActionKeepBoth, CopyStatus::Copied, "OLD (1)", 1400000000},
        {"SKIPPED", QL::kCopyActionSkip, CopyStatus::Skipped, "", 0},
        {"FILE", QL::kCopyActionReplace, CopyStatus::Failed, "", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.target) + " action " + std::to_string(c.action));
        const CopyOutcome outcome =
            FileCopier().CopyFolder(tree_.NativePath("card/CLIP"), {{Destination(c.target), c.action}})[0];
        EXPECT_EQ(outcome.status, c.status) << outcome.reason;
        if (*c.finalName) {
            EXPECT_EQ(ModificationTime(Destination(c.finalName)).tv_sec, c.time);
        }
        if (c.status == CopyStatus::Copied) {
            EXPECT_EQ(outcome.finalPath, Destination(c.finalName));
        }
        if (c.status == CopyStatus::Failed) {
            EXPECT_EQ(outcome.reason, "target exists");
        }
    }
    EXPECT_FALSE(Exists(Destination("SKIPPED")));
    EXPECT_EQ(ReadFileBytes(Destination("FILE")), "a file, not a folder");

    const auto notAFolder = FileCopier().CopyFolder(source_, {{Destination("A001.MOV"), QL::kCopyActionNone}});
    EXPECT_EQ(notAFolder[0].reason, "source could not be read: Not a directory");
    EXPECT_FALSE(Exists(Destination("A001.MOV")));
}

} // namespace
} // namespace igd::test
