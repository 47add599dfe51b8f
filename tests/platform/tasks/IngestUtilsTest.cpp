#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "QL/CopySetting.h"
#include "QL/IngestUtils.h"
#include "support/ScriptedInteractionDriver.h"
#include "support/TempTree.h"

namespace {

using QL::IngestUtils;

using PathCheck = bool (*)(const std::vector<Fnd::WString>&, Fnd::WString&);

// Paths are relative to a tree holding "clip.mov", "folder/", "link-to-folder" -> "folder" and
// "dangling" -> "nowhere"; "" stays an empty entry.
struct PathCheckCase {
    const char* name;
    PathCheck check;
    std::vector<std::string> paths;
    bool expected;
    std::string failing; // "" for an empty failing path
};

class PathChecks : public testing::TestWithParam<PathCheckCase> {
protected:
    PathChecks() {
        tree.MakeFile("clip.mov", "x");
        tree.MakeFolder("folder");
        tree.MakeSymlink("link-to-folder", "folder");
        tree.MakeSymlink("dangling", "nowhere");
    }
    Fnd::WString Resolve(const std::string& relative) const {
        return relative.empty() ? Fnd::WString() : tree.Path(relative);
    }
    igd::test::TempTree tree;
};

TEST_P(PathChecks, AnswerAndFailingPath) {
    const PathCheckCase& c = GetParam();
    std::vector<Fnd::WString> paths;
    for (const std::string& p : c.paths)
        paths.push_back(Resolve(p));
    Fnd::WString failing = u"untouched";
    EXPECT_EQ(c.check(paths, failing), c.expected);
    EXPECT_EQ(failing, c.expected ? u"untouched" : Resolve(c.failing));
}

INSTANTIATE_TEST_SUITE_P(
    IngestUtils, PathChecks,
    testing::Values(
        PathCheckCase{
            "ExistAll", &IngestUtils::PathsExist, {"clip.mov", "folder", "link-to-folder"}, true, ""},
        PathCheckCase{"ExistNone", &IngestUtils::PathsExist, {}, true, ""},
        PathCheckCase{
            "ExistNamesFirstMissing", &IngestUtils::PathsExist, {"clip.mov", "gone", "lost"}, false, "gone"},
        PathCheckCase{"ExistDanglingLink", &IngestUtils::PathsExist, {"dangling"}, false, "dangling"},
        PathCheckCase{"ExistEmptyEntry", &IngestUtils::PathsExist, {"clip.mov", "", "gone"}, false, ""},
        PathCheckCase{"WritableAll", &IngestUtils::PathsAreWritable, {"folder", "clip.mov"}, true, ""},
        PathCheckCase{
            "WritableMissing", &IngestUtils::PathsAreWritable, {"folder", "gone/sub"}, false, "gone/sub"},
        PathCheckCase{"WritableEmptyEntry", &IngestUtils::PathsAreWritable, {""}, false, ""},
        PathCheckCase{
            "DistinctPaths", &IngestUtils::NoDuplicatedPaths, {"folder", "clip.mov", "gone"}, true, ""},
        PathCheckCase{"SameAfterNormalising",
                      &IngestUtils::NoDuplicatedPaths,
                      {"folder", "clip.mov", "folder/./"},
                      false,
                      "folder/./"},
        PathCheckCase{"SameMissingPath", &IngestUtils::NoDuplicatedPaths, {"gone", "gone"}, false, "gone"},
        PathCheckCase{"SameFolderThroughLink",
                      &IngestUtils::NoDuplicatedPaths,
                      {"folder", "link-to-folder"},
                      false,
                      "link-to-folder"},
        PathCheckCase{
            "FirstDuplicateInOrder", &IngestUtils::NoDuplicatedPaths, {"a", "b", "b", "a"}, false, "b"},
        PathCheckCase{"DuplicateEmptyEntry", &IngestUtils::NoDuplicatedPaths, {"folder", ""}, false, ""}),
    [](const testing::TestParamInfo<PathCheckCase>& c) { return std::string(c.param.name); });

TEST(IngestUtilsWritable, ReadOnlyFolderIsNamed) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "root may write into read-only folders; the missing-path case covers refusal";
    igd::test::TempTree tree;
    const Fnd::WString readOnly = tree.MakeFolder("locked");
    ASSERT_EQ(::chmod(tree.NativePath("locked").c_str(), 0555), 0);
    Fnd::WString failing;
    EXPECT_FALSE(IngestUtils::PathsAreWritable({tree.Path(), readOnly}, failing));
    EXPECT_EQ(failing, readOnly);
}

struct ContainCase {
    const char* folder;
    const char* path;
    bool recursive;
    bool expected;
};

class FolderContain : public testing::TestWithParam<ContainCase> {};

TEST_P(FolderContain, Lexically) {
    const ContainCase& c = GetParam();
    EXPECT_EQ(IngestUtils::FolderContain(Fnd::FromUTF8(c.folder), Fnd::FromUTF8(c.path), c.recursive),
              c.expected)
        << c.folder << " / " << c.path << " recursive " << c.recursive;
}

INSTANTIATE_TEST_SUITE_P(
    IngestUtils, FolderContain,
    testing::Values(ContainCase{"/a/b", "/a/b/c", true, true}, ContainCase{"/a/b", "/a/b/c/d", true, true},
                    ContainCase{"/a/b", "/a/b/c", false, true}, ContainCase{"/a/b", "/a/b/c/d", false, false},
                    ContainCase{"/a/b/", "/a/b/c/", true, true}, ContainCase{"/a/b", "/a/bc", true, false},
                    ContainCase{"/a/b", "/a/bcd/e", true, false}, ContainCase{"/a/b", "/a/b", true, false},
                    ContainCase{"/a/b", "/a", true, false}, ContainCase{"/a/b", "/a/b/../c", true, false},
                    ContainCase{"/", "/a", false, true}, ContainCase{"", "/a", true, false}));

TEST(IngestUtilsFolderContain, PathReachedThroughALinkIntoTheFolder) {
    igd::test::TempTree tree;
    tree.MakeFolder("source/sub");
    tree.MakeSymlink("shortcut", "source");
    EXPECT_TRUE(IngestUtils::FolderContain(tree.Path("source"), tree.Path("shortcut/sub"), true));
    EXPECT_FALSE(IngestUtils::FolderContain(tree.Path("source/sub"), tree.Path("shortcut"), true));
}

TEST(IngestUtilsIsLinkFile, OnlySymbolicLinksDanglingOrNot) {
    igd::test::TempTree tree;
    tree.MakeFile("clip.mov");
    tree.MakeFolder("folder");
    EXPECT_TRUE(IngestUtils::IsLinkFile(tree.MakeSymlink("to-clip", "clip.mov")));
    EXPECT_TRUE(IngestUtils::IsLinkFile(tree.MakeSymlink("to-folder", "folder")));
    EXPECT_TRUE(IngestUtils::IsLinkFile(tree.MakeSymlink("dangling", "nowhere")));
    EXPECT_FALSE(IngestUtils::IsLinkFile(tree.Path("clip.mov")));
    EXPECT_FALSE(IngestUtils::IsLinkFile(tree.Path("folder")));
    EXPECT_FALSE(IngestUtils::IsLinkFile(tree.Path("missing")));
    EXPECT_FALSE(IngestUtils::IsLinkFile(u""));
}

class WarnUserForExistPath : public testing::Test {
protected:
    bool Warn(bool allowApplyToAll, bool onlyInCopyList) {
        return IngestUtils::WarnUserForExistPath(u"/card/A001.MOV", u"/dest/A001.MOV", false, action,
                                                 applyToAll, allowApplyToAll, onlyInCopyList, true);
    }
    igd::test::ScopedInteractionDriver ui;
    int action = -7;
    int applyToAll = -7;
};

TEST_F(WarnUserForExistPath, CancelAnswersFalseAndLeavesTheOutValues) {
    ui->QueueExistingPathCancel();
    EXPECT_FALSE(Warn(true, false));
    EXPECT_EQ(action, -7);
    EXPECT_EQ(applyToAll, -7);
}

TEST_F(WarnUserForExistPath, AsksAboutTheTargetAndPassesTheFlags) {
    ui->QueueExistingPathAnswer(QL::kCopyActionSkip);
    ASSERT_TRUE(IngestUtils::WarnUserForExistPath(u"/card/CLIPS", u"/dest/CLIPS", true, action, applyToAll,
                                                  true, true, true));
    ASSERT_EQ(ui->ExistingPathQuestions().size(), 1u);
    const Fnd::ExistingPathQuestion& q = ui->ExistingPathQuestions()[0];
    EXPECT_EQ(q.source, u"/card/CLIPS");
    EXPECT_EQ(q.target, u"/dest/CLIPS");
    EXPECT_TRUE(q.isDirectory);
    EXPECT_TRUE(q.onlyInCopyList);
    EXPECT_EQ(action, QL::kCopyActionSkip);
    EXPECT_EQ(applyToAll, 0);
}

TEST_F(WarnUserForExistPath, ApplyToAllOnlyWhereOffered) {
    ui->QueueExistingPathAnswer(QL::kCopyActionReplace, true);
    ui->QueueExistingPathAnswer(QL::kCopyActionKeepBoth, true);
    ASSERT_TRUE(Warn(true, false));
    EXPECT_EQ(action, QL::kCopyActionReplace);
    EXPECT_EQ(applyToAll, 1);
    EXPECT_FALSE(ui->ExistingPathQuestions()[0].onlyInCopyList);

    ASSERT_TRUE(Warn(false, false));
    EXPECT_EQ(action, QL::kCopyActionKeepBoth);
    EXPECT_EQ(applyToAll, 0);
}

TEST(IngestUtilsWarnUser, NobodyToAskMeansCancel) {
    int action = 0, applyToAll = 0;
    EXPECT_FALSE(
        IngestUtils::WarnUserForExistPath(u"/s", u"/t", false, action, applyToAll, true, false, true));
}

} // namespace
