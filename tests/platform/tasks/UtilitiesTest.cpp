#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QL/Utilities.h"
#include "support/TempTree.h"

namespace {

using QL::Utilities;

class ExtendFolderPaths : public testing::Test {
protected:
    ExtendFolderPaths() {
        tree.MakeFile("card/b/x.mov");
        tree.MakeFile("card/a.mov");
        tree.MakeFile("card/a");
        tree.MakeFile("card/.hidden");
        tree.MakeFile("card/z.mov");
        tree.MakeFile("card/\xC3\xA9.mov"); // é sorts after every ASCII name
        tree.MakeFolder("card/B");
        tree.MakeSymlink("card/c-link", "b");
    }
    std::vector<Fnd::WString> Expected(const std::vector<std::string>& relative) const {
        std::vector<Fnd::WString> paths;
        for (const std::string& r : relative)
            paths.push_back(tree.Path("card/" + r));
        return paths;
    }
    igd::test::TempTree tree;
};

TEST_F(ExtendFolderPaths, FoldersBeforeTheirContentInByteOrderWithoutEnteringLinks) {
    std::vector<Fnd::WString> paths{u"/kept"};
    Utilities::ExtendFolderPaths(tree.Path("card"), paths);
    std::vector<Fnd::WString> expected{u"/kept"};
    for (Fnd::WString& p :
         Expected({".hidden", "B", "a", "a.mov", "b", "b/x.mov", "c-link", "z.mov", "\xC3\xA9.mov"}))
        expected.push_back(std::move(p));
    EXPECT_EQ(paths, expected);
}

TEST_F(ExtendFolderPaths, TrailingSeparatorMakesNoDifference) {
    std::vector<Fnd::WString> plain, slashed;
    Utilities::ExtendFolderPaths(tree.Path("card/b"), plain);
    Utilities::ExtendFolderPaths(tree.Path("card/b/"), slashed);
    EXPECT_EQ(plain, Expected({"b/x.mov"}));
    EXPECT_EQ(slashed, plain);
}

TEST_F(ExtendFolderPaths, EmptyOrMissingFolderAddsNothing) {
    std::vector<Fnd::WString> paths;
    Utilities::ExtendFolderPaths(tree.Path("card/B"), paths);
    Utilities::ExtendFolderPaths(tree.Path("missing"), paths);
    Utilities::ExtendFolderPaths(tree.Path("card/a.mov"), paths);
    EXPECT_TRUE(paths.empty());
}

TEST(GetXMPPath, PrefersStemSidecarThenNameSidecarThenDefault) {
    igd::test::TempTree tree;
    const Fnd::WString media = tree.MakeFile("A001.MOV");
    EXPECT_EQ(Utilities::GetXMPPath(media), tree.Path("A001.xmp"));

    const Fnd::WString nameSidecar = tree.MakeFile("A001.MOV.xmp");
    EXPECT_EQ(Utilities::GetXMPPath(media), nameSidecar);

    const Fnd::WString stemSidecar = tree.MakeFile("A001.XMP");
    EXPECT_EQ(Utilities::GetXMPPath(media), stemSidecar);
}

TEST(GetXMPPath, AnyCaseOfTheExtensionAndFoldersAreNotSidecars) {
    igd::test::TempTree tree;
    tree.MakeFolder("B002.xmp");
    const Fnd::WString sidecar = tree.MakeFile("B002.MXF.Xmp");
    EXPECT_EQ(Utilities::GetXMPPath(tree.Path("B002.MXF")), sidecar);
    EXPECT_EQ(Utilities::GetXMPPath(tree.Path("noext")), tree.Path("noext.xmp"));
}

TEST(MergePathList, AppendsWhatIsMissingInOrderOnce) {
    std::vector<Fnd::WString> paths{u"/a"};
    Utilities::MergePathList(paths, {u"/b", u"/a", u"/c", u"/b"}, {u"/c", u"/d"});
    EXPECT_EQ(paths, (std::vector<Fnd::WString>{u"/a", u"/b", u"/c", u"/d"}));
}

TEST(MergePathList, ListMayBeMergedWithItself) {
    std::vector<Fnd::WString> paths{u"/a", u"/b"};
    Utilities::MergePathList(paths, paths, {u"/c"});
    EXPECT_EQ(paths, (std::vector<Fnd::WString>{u"/a", u"/b", u"/c"}));
}

struct RelativeCase {
    const char* root;
    const char* path;
    const char* expected;
};

class GetRelativePath : public testing::TestWithParam<RelativeCase> {};

TEST_P(GetRelativePath, Answers) {
    const RelativeCase& c = GetParam();
    EXPECT_EQ(Utilities::GetRelativePath(Fnd::FromUTF8(c.root), Fnd::FromUTF8(c.path)),
              Fnd::FromUTF8(c.expected))
        << c.root << " -> " << c.path;
}

INSTANTIATE_TEST_SUITE_P(Utilities, GetRelativePath,
                         testing::Values(RelativeCase{"/r", "/r/a/b.mov", "a/b.mov"},
                                         RelativeCase{"/r", "/r", ""}, RelativeCase{"/r/", "/r/a", "a"},
                                         RelativeCase{"/r", "/r//a/./b", "a/b"},
                                         RelativeCase{"/r/a", "/r/b/c", "../b/c"},
                                         RelativeCase{"/r/a/b", "/r", "../.."},
                                         RelativeCase{"/r", "/rx/y", "../rx/y"},
                                         RelativeCase{"/", "/x/y", "x/y"}, RelativeCase{"/r", "a/b", "a/b"}));

struct SidecarCase {
    const char* sidecar;
    const char* expected;
};

class RenameSideCarFile : public testing::TestWithParam<SidecarCase> {};

TEST_P(RenameSideCarFile, FollowsTheNewNameBesideTheMedia) {
    EXPECT_EQ(Utilities::RenameSideCarFile(u"/dest/day1/Interview.MOV", u"A001", u"Interview",
                                           Fnd::FromUTF8(GetParam().sidecar)),
              Fnd::FromUTF8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Utilities, RenameSideCarFile,
                         testing::Values(SidecarCase{"/card/A001.XMP", "/dest/day1/Interview.XMP"},
                                         SidecarCase{"/card/A001.MOV.xmp", "/dest/day1/Interview.MOV.xmp"},
                                         SidecarCase{"A001.xmp", "/dest/day1/Interview.xmp"},
                                         SidecarCase{"/card/other.XMP", "/dest/day1/Interview.XMP"},
                                         SidecarCase{"/card/A001x.xmp", "/dest/day1/Interview.xmp"},
                                         SidecarCase{"", "/dest/day1/Interview.xmp"}));

} // namespace
