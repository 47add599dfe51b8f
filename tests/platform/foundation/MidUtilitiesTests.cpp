#include <gtest/gtest.h>

#include <sys/stat.h>

#include "Mid/Utilities.h"
#include "support/TempTree.h"

using Fnd::WString;
namespace Utilities = Mid::Utilities;

TEST(NormalizePathWithoutUNC, ResolvesLexically) {
    struct Case {
        WString path, expected;
    };
    const Case cases[] = {
        {u"", u""},
        {u"/", u"/"},
        {u"//media//card/", u"/media/card"},
        {u"/a/./b/.", u"/a/b"},
        {u"/a/b/../c", u"/a/c"},
        {u"/../a", u"/a"}, // never above the root
        {u"/a/../..", u"/"},
        {u"../a", u"../a"}, // a relative path may start above itself
        {u"a/../../b", u"../b"},
        {u"../../", u"../.."},
        {u"./a/", u"a"},
        {u"a/..", u"."},
        {u".", u"."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Fnd::ToUTF8(c.path));
        EXPECT_EQ(Utilities::NormalizePathWithoutUNC(c.path), c.expected);
    }
}

TEST(MidCombinePaths, NormalisesTheFirstPathOnly) {
    EXPECT_EQ(Utilities::CombinePaths(u"/a/./b/", u"c.MOV"), WString(u"/a/b/c.MOV"));
    EXPECT_EQ(Utilities::CombinePaths(u"/a/b/..", u"c"), WString(u"/a/c"));
    EXPECT_EQ(Utilities::CombinePaths(u"/", u"c"), WString(u"/c"));
    EXPECT_EQ(Utilities::CombinePaths(u"", u"c"), WString(u"c"));
    EXPECT_EQ(Utilities::AddBootVolumePath(u"/Volumes/x"), WString(u"/Volumes/x"));
}

class ArePathsRelativeTest : public ::testing::Test {
protected:
    void SetUp() override {
        tree.MakeFile("a/clip.MOV", "x");
        tree.MakeFolder("b/sub");
    }
    // Answers the relative path, or "<unrelated>".
    WString Relative(const WString& base, bool baseIsFolder, const WString& path, bool pathIsFolder = true) {
        WString relative;
        return Utilities::ArePathsRelative(base, baseIsFolder, path, pathIsFolder, relative)
                   ? relative
                   : WString(u"<unrelated>");
    }
    igd::test::TempTree tree;
};

TEST_F(ArePathsRelativeTest, AnswersTheWayFromBaseToPath) {
    EXPECT_EQ(Relative(tree.Path(), true, tree.Path()), WString(u"."));
    EXPECT_EQ(Relative(tree.Path(), true, tree.Path() + u"/./b/sub/"), WString(u"b/sub"));
    EXPECT_EQ(Relative(tree.Path("a"), true, tree.Path("b/sub")), WString(u"../b/sub"));
    EXPECT_EQ(Relative(tree.Path("b/sub"), true, tree.Path("a/clip.MOV"), false),
              WString(u"../../a/clip.MOV"));
    // A file as base: the way starts from the folder that holds it.
    EXPECT_EQ(Relative(tree.Path("a/clip.MOV"), false, tree.Path("a/proxy"), true), WString(u"proxy"));
}

TEST_F(ArePathsRelativeTest, PathsThatDoNotExistYetUseTheirNearestAncestor) {
    EXPECT_EQ(Relative(tree.Path(), true, tree.Path("new/deeper")), WString(u"new/deeper"));
    EXPECT_EQ(Relative(tree.Path("not/yet"), true, tree.Path("b")), WString(u"../../b"));
}

TEST_F(ArePathsRelativeTest, PathsOnDifferentFilesystemsAreUnrelated) {
    struct stat proc {
    }, temp{};
    if (::stat("/proc/self", &proc) != 0 || ::stat(tree.NativePath().c_str(), &temp) != 0 ||
        proc.st_dev == temp.st_dev)
        GTEST_SKIP() << "needs /proc on its own filesystem";
    EXPECT_EQ(Relative(tree.Path(), true, u"/proc/self"), WString(u"<unrelated>"));
    EXPECT_EQ(Relative(u"/proc/self/not-there", true, tree.Path("a")), WString(u"<unrelated>"));
}
