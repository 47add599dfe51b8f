#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "QL/CopySetting.h"
#include "QL/IngestUtils.h"
#include "support/ScriptedInteractionDriver.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using QL::IngestUtils;

class IngestUtilsOnDisk : public testing::Test {
protected:
    IngestUtilsOnDisk() {
        tree.MakeFile("clip.mov", "x");
        tree.MakeFolder("folder/sub");
        tree.MakeSymlink("link-to-folder", "folder");
        tree.MakeSymlink("dangling", "nowhere");
    }
    // "" stays an empty entry.
    Fnd::WString Resolve(const std::string& relative) const {
        return relative.empty() ? Fnd::WString() : tree.Path(relative);
    }
    TempTree tree;
};

TEST_F(IngestUtilsOnDisk, PathChecksNameTheFirstFailingPath) {
    using Check = bool (*)(const std::vector<Fnd::WString>&, Fnd::WString&);
    const Check exist = &IngestUtils::PathsExist, writable = &IngestUtils::PathsAreWritable,
                distinct = &IngestUtils::NoDuplicatedPaths;
    struct Case {
        Check check;
        std::vector<std::string> paths;
        bool passes;
        std::string failing;
    };
    for (const Case& c : {
             Case{exist, {"clip.mov", "folder", "link-to-folder"}, true, ""},
             Case{exist, {}, true, ""},
             Case{exist, {"clip.mov", "gone", "lost"}, false, "gone"},
             Case{exist, {"dangling"}, false, "dangling"},
             Case{exist, {"clip.mov", "", "gone"}, false, ""},
             Case{writable, {"folder", "clip.mov"}, true, ""},
             Case{writable, {"folder", "gone/sub"}, false, "gone/sub"},
             Case{writable, {""}, false, ""},
             Case{distinct, {"folder", "clip.mov", "gone"}, true, ""},
             Case{distinct, {"folder", "clip.mov", "folder/./"}, false, "folder/./"},
             Case{distinct, {"gone", "gone"}, false, "gone"},
             Case{distinct, {"folder", "link-to-folder"}, false, "link-to-folder"},
             Case{distinct, {"a", "b", "b", "a"}, false, "b"},
             Case{distinct, {"folder", ""}, false, ""},
         }) {
        std::vector<Fnd::WString> paths;
        for (const std::string& p : c.paths)
            paths.push_back(Resolve(p));
        SCOPED_TRACE(testing::PrintToString(c.paths));
        Fnd::WString failing = u"untouched";
        EXPECT_EQ(c.check(paths, failing), c.passes);
        EXPECT_EQ(failing, c.passes ? u"untouched" : Resolve(c.failing));
    }
}

TEST_F(IngestUtilsOnDisk, ReadOnlyFolderIsNotWritable) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "root may write into read-only folders; the missing-path case covers refusal";
    ASSERT_EQ(::chmod(tree.NativePath("folder").c_str(), 0555), 0);
    Fnd::WString failing;
    EXPECT_FALSE(IngestUtils::PathsAreWritable({tree.Path(), tree.Path("folder")}, failing));
    EXPECT_EQ(failing, tree.Path("folder"));
}

TEST_F(IngestUtilsOnDisk, FolderContainAndSameFolderSeeThroughLinks) {
    EXPECT_TRUE(IngestUtils::FolderContain(tree.Path("folder"), tree.Path("link-to-folder/sub"), true));
    EXPECT_FALSE(IngestUtils::FolderContain(tree.Path("folder/sub"), tree.Path("link-to-folder"), true));
    // A destination still to be made behind a link lands where the link leads.
    EXPECT_TRUE(IngestUtils::FolderContain(tree.Path("folder"), tree.Path("link-to-folder/new/day1"), true));
    EXPECT_FALSE(IngestUtils::FolderContain(tree.Path("folder/sub"), tree.Path("link-to-folder/new"), true));

    EXPECT_TRUE(IngestUtils::SameFolder(tree.Path("folder"), tree.Path("link-to-folder")));
    EXPECT_TRUE(IngestUtils::SameFolder(tree.Path("link-to-folder"), tree.Path("folder/sub/..")));
    EXPECT_TRUE(IngestUtils::SameFolder(tree.Path("folder/new"), tree.Path("link-to-folder/new")));
    EXPECT_FALSE(IngestUtils::SameFolder(tree.Path("folder"), tree.Path("folder/sub")));
    EXPECT_FALSE(IngestUtils::SameFolder(tree.Path("folder/new"), tree.Path("folder/other")));
    EXPECT_FALSE(IngestUtils::SameFolder(tree.Path("folder"), u""));
}

TEST_F(IngestUtilsOnDisk, IsLinkFileOnlyForSymbolicLinksDanglingOrNot) {
    EXPECT_TRUE(IngestUtils::IsLinkFile(tree.Path("link-to-folder")));
    EXPECT_TRUE(IngestUtils::IsLinkFile(tree.Path("dangling")));
    EXPECT_TRUE(IngestUtils::IsLinkFile(tree.MakeSymlink("to-clip", "clip.mov")));
    for (const char* entry : {"clip.mov", "folder", "missing"})
        EXPECT_FALSE(IngestUtils::IsLinkFile(tree.Path(entry))) << entry;
    EXPECT_FALSE(IngestUtils::IsLinkFile(u""));
}

// The prefix trap: "/a/bc" starts with "/a/b" but is not inside it.
TEST(IngestUtilsFolderContain, LexicallyStrictlyInside) {
    struct Case {
        const char *folder, *path;
        bool recursive, expected;
    };
    for (const Case& c : {Case{"/a/b", "/a/b/c", true, true}, Case{"/a/b", "/a/b/c/d", true, true},
                          Case{"/a/b", "/a/b/c", false, true}, Case{"/a/b", "/a/b/c/d", false, false},
                          Case{"/a/b/", "/a/b/c/", true, true}, Case{"/a/b", "/a/bc", true, false},
                          Case{"/a/b", "/a/bcd/e", true, false}, Case{"/a/b", "/a/b", true, false},
                          Case{"/a/b", "/a", true, false}, Case{"/a/b", "/a/b/../c", true, false},
                          Case{"/", "/a", false, true}, Case{"", "/a", true, false}})
        EXPECT_EQ(IngestUtils::FolderContain(Fnd::FromUTF8(c.folder), Fnd::FromUTF8(c.path), c.recursive),
                  c.expected)
            << c.folder << " / " << c.path << " recursive " << c.recursive;
}

// The plan's suites see the question asked and cancelled; here, what the answer carries back.
TEST(WarnUserForExistPath, HonoursApplyToAllOnlyWhereOfferedAndLeavesTheOutValuesWhenNobodyAnswers) {
    int action = -7, applyToAll = -7;
    const auto warn = [&](bool offerApplyToAll) {
        return IngestUtils::WarnUserForExistPath(u"/card/A001", u"/dest/A001", false, action, applyToAll,
                                                 offerApplyToAll, false, true);
    };
    EXPECT_FALSE(warn(true)) << "nobody to ask";
    EXPECT_EQ(action, -7);
    ScopedInteractionDriver ui;
    ui->QueueExistingPathAnswer(QL::kCopyActionReplace, true);
    ui->QueueExistingPathAnswer(QL::kCopyActionKeepBoth, true);
    ASSERT_TRUE(warn(true));
    EXPECT_EQ(action, QL::kCopyActionReplace);
    EXPECT_EQ(applyToAll, 1);
    ASSERT_TRUE(warn(false));
    EXPECT_EQ(action, QL::kCopyActionKeepBoth);
    EXPECT_EQ(applyToAll, 0);
    EXPECT_FALSE(ui->ExistingPathQuestions()[1].offerApplyToAll);
}

} // namespace
} // namespace igd::test
