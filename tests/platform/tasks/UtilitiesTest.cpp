#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QL/Utilities.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using QL::Utilities;
using Paths = std::vector<Fnd::WString>;

TEST(ExtendFolderPaths, FoldersBeforeTheirContentInByteOrderWithoutEnteringLinks) {
    TempTree tree;
    for (const char* file : {"card/b/x.mov", "card/a.mov", "card/a", "card/.hidden", "card/z.mov",
                             "card/\xC3\xA9.mov"}) // é sorts after every ASCII name
        tree.MakeFile(file);
    tree.MakeFolder("card/B");
    tree.MakeSymlink("card/c-link", "b");

    Paths paths{u"/kept"};
    Utilities::ExtendFolderPaths(tree.Path("card"), paths);
    Paths expected{u"/kept"};
    for (const char* entry :
         {".hidden", "B", "a", "a.mov", "b", "b/x.mov", "c-link", "z.mov", "\xC3\xA9.mov"})
        expected.push_back(tree.Path(std::string("card/") + entry));
    EXPECT_EQ(paths, expected);

    Paths slashed, nothing;
    Utilities::ExtendFolderPaths(tree.Path("card/b/"), slashed);
    EXPECT_EQ(slashed, Paths{tree.Path("card/b/x.mov")});
    for (const char* notAFolderWithContent : {"card/B", "missing", "card/a.mov"})
        Utilities::ExtendFolderPaths(tree.Path(notAFolderWithContent), nothing);
    EXPECT_TRUE(nothing.empty());
}

TEST(GetXMPPath, PrefersStemSidecarThenNameSidecarThenDefault) {
    TempTree tree;
    const Fnd::WString media = tree.MakeFile("A001.MOV");
    EXPECT_EQ(Utilities::GetXMPPath(media), tree.Path("A001.xmp"));
    const Fnd::WString nameSidecar = tree.MakeFile("A001.MOV.xmp");
    EXPECT_EQ(Utilities::GetXMPPath(media), nameSidecar);
    const Fnd::WString stemSidecar = tree.MakeFile("A001.XMP");
    EXPECT_EQ(Utilities::GetXMPPath(media), stemSidecar);

    // Any case of the extension counts; a folder is not a sidecar.
    tree.MakeFolder("B002.xmp");
    const Fnd::WString sidecar = tree.MakeFile("B002.MXF.Xmp");
    EXPECT_EQ(Utilities::GetXMPPath(tree.Path("B002.MXF")), sidecar);
    EXPECT_EQ(Utilities::GetXMPPath(tree.Path("noext")), tree.Path("noext.xmp"));
}

TEST(MergePathList, AppendsWhatIsMissingInOrderOnceEvenFromItself) {
    Paths paths{u"/a"};
    Utilities::MergePathList(paths, {u"/b", u"/a", u"/c", u"/b"}, {u"/c", u"/d"});
    EXPECT_EQ(paths, (Paths{u"/a", u"/b", u"/c", u"/d"}));
    Utilities::MergePathList(paths, paths, {u"/e"});
    EXPECT_EQ(paths, (Paths{u"/a", u"/b", u"/c", u"/d", u"/e"}));
}

TEST(GetRelativePath, LexicallyFromTheRoot) {
    struct Case {
        const char *root, *path, *expected;
    };
    for (const Case& c :
         {Case{"/r", "/r/a/b.mov", "a/b.mov"}, Case{"/r", "/r", ""}, Case{"/r/", "/r/a", "a"},
          Case{"/r", "/r//a/./b", "a/b"}, Case{"/r/a", "/r/b/c", "../b/c"}, Case{"/r/a/b", "/r", "../.."},
          Case{"/r", "/rx/y", "../rx/y"}, Case{"/", "/x/y", "x/y"}, Case{"/r", "a/b", "a/b"}})
        EXPECT_EQ(Utilities::GetRelativePath(Fnd::FromUTF8(c.root), Fnd::FromUTF8(c.path)),
                  Fnd::FromUTF8(c.expected))
            << c.root << " -> " << c.path;
}

// The sidecar follows the media's new name and folder, keeping its own form of extension.
TEST(RenameSideCarFile, FollowsTheNewNameBesideTheMedia) {
    struct Case {
        const char *sidecar, *expected;
    };
    for (const Case& c :
         {Case{"/card/A001.XMP", "/dest/day1/Interview.XMP"},
          Case{"/card/A001.MOV.xmp", "/dest/day1/Interview.MOV.xmp"},
          Case{"A001.xmp", "/dest/day1/Interview.xmp"}, Case{"/card/other.XMP", "/dest/day1/Interview.XMP"},
          Case{"/card/A001x.xmp", "/dest/day1/Interview.xmp"}, Case{"", "/dest/day1/Interview.xmp"}})
        EXPECT_EQ(Utilities::RenameSideCarFile(u"/dest/day1/Interview.MOV", u"A001", u"Interview",
                                               Fnd::FromUTF8(c.sidecar)),
                  Fnd::FromUTF8(c.expected))
            << c.sidecar;
}

} // namespace
} // namespace igd::test
