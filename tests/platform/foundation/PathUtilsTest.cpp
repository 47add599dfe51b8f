#include <gtest/gtest.h>

#include <sys/stat.h>

#include "Fnd/PathUtils.h"
#include "Mid/Utilities.h"
#include "fluxcore/FileUtils.h"
#include "support/TempTree.h"

namespace igd::test {

using Fnd::WString;
namespace PathUtils = Fnd::PathUtils;
namespace FileUtils = fluxcore::utility::FileUtils;
namespace Utilities = Mid::Utilities;

TEST(SplitPath, SplitsIntoDirectoryStemAndExtensionAndMakePathJoinsThem) {
    struct Case {
        WString path, directory, stem, extension;
    };
    for (const Case& c :
         {Case{u"/a/b/clip.MOV", u"/a/b/", u"clip", u".MOV"}, Case{u"/a/b/", u"/a/b/", u"", u""},
          Case{u"clip.tar.gz", u"", u"clip.tar", u".gz"}, Case{u"/home/u/.config", u"/home/u/", u".config", u""},
          Case{u"dir.d/readme", u"dir.d/", u"readme", u""}, Case{u"take.", u"", u"take", u"."}}) {
        SCOPED_TRACE(Fnd::ToUTF8(c.path));
        WString drive = u"stale", directory, stem, extension;
        PathUtils::SplitPath(c.path, &drive, &directory, &stem, &extension);
        EXPECT_EQ(drive, WString());
        EXPECT_EQ(directory, c.directory);
        EXPECT_EQ(stem, c.stem);
        EXPECT_EQ(extension, c.extension);
        EXPECT_EQ(PathUtils::MakePath(drive, directory, stem, extension), c.path);
    }
    WString extension;
    PathUtils::SplitPath(u"/a/clip.mxf", nullptr, nullptr, nullptr, &extension);
    EXPECT_EQ(extension, WString(u".mxf"));
    EXPECT_EQ(PathUtils::MakePath(u"", u"/a/b", u"clip", u"MOV"), WString(u"/a/b/clip.MOV"));
}

TEST(PathJoining, CombineRemoveTrailingSlashAndParentPath) {
    struct Join {
        WString first, second, expected;
    };
    for (const Join& c : {Join{u"/a", u"b", u"/a/b"}, Join{u"/a//", u"/b", u"/a/b"}, Join{u"/", u"b", u"/b"},
                          Join{u"", u"b", u"b"}, Join{u"/a", u"", u"/a"}, Join{u"a", u"b/c/", u"a/b/c/"}}) {
        SCOPED_TRACE(Fnd::ToUTF8(c.first + u" + " + c.second));
        EXPECT_EQ(PathUtils::CombinePaths(c.first, c.second), c.expected);
    }
    struct Trim {
        WString path, withoutSlash, parent;
    };
    for (const Trim& c : {Trim{u"/a/b/", u"/a/b", u"/a"}, Trim{u"/a//", u"/a", u"/"},
                          Trim{u"/a//b", u"/a//b", u"/a"}, Trim{u"/", u"/", u""}, Trim{u"//", u"/", u""},
                          Trim{u"a/b", u"a/b", u"a"}, Trim{u"b", u"b", u"."}, Trim{u"", u"", u""}}) {
        SCOPED_TRACE(Fnd::ToUTF8(c.path));
        EXPECT_EQ(PathUtils::RemoveTrailingSlash(c.path), c.withoutSlash);
        EXPECT_EQ(FileUtils::GetParentPath(c.path), c.parent);
    }
}

TEST(FileNameValidity, RefusesIllegalCharactersReservedNamesAndLongNamesAndRemovesOrReplaces) {
    for (const char16_t illegal : WString(u"\\/:*?\"<>|\t\x1F")) {
        SCOPED_TRACE(static_cast<int>(illegal));
        EXPECT_FALSE(PathUtils::IsValidFileName(u"a" + WString(1, illegal) + u"b"));
    }
    // The length limit counts UTF-8 bytes, not characters: 127 x U+00E9 is 254 bytes, 128 are 256.
    for (const WString& name : {WString(u"clip 01 (copy).MOV"), WString(u"..."),
                                WString(u"\xD83C\xDFAC take"), WString(255, u'a'), WString(127, u'\xE9')})
        EXPECT_TRUE(PathUtils::IsValidFileName(name)) << Fnd::ToUTF8(name);
    for (const WString& name :
         {WString(), WString(u"."), WString(u".."), WString(256, u'a'), WString(128, u'\xE9')})
        EXPECT_FALSE(PathUtils::IsValidFileName(name)) << Fnd::ToUTF8(name);

    WString name = u"a:b*c\x01?.mov";
    EXPECT_TRUE(PathUtils::RemoveIllegalFileNameCharacters(name));
    EXPECT_EQ(name, WString(u"abc.mov"));
    EXPECT_FALSE(PathUtils::RemoveIllegalFileNameCharacters(name));

    WString other = u"10:30/scene|2";
    EXPECT_TRUE(FileUtils::ReplaceIllegalFileNameCharacters(other, u'_'));
    EXPECT_EQ(other, WString(u"10_30_scene_2"));
    EXPECT_FALSE(FileUtils::ReplaceIllegalFileNameCharacters(other, u'_'));
    EXPECT_THROW(FileUtils::ReplaceIllegalFileNameCharacters(other, u'/'), std::invalid_argument);
}

TEST(PathValidity, ChecksComponentAndWholeLength) {
    EXPECT_TRUE(PathUtils::IsValidPath(u"relative/clip.MOV"));
    EXPECT_FALSE(PathUtils::IsValidPath(u""));
    EXPECT_FALSE(PathUtils::IsValidPath(WString(u"/a\0b", 4)));
    EXPECT_TRUE(PathUtils::IsValidPath(u"/a/" + WString(255, u'n')));
    EXPECT_FALSE(PathUtils::IsValidPath(u"/a/" + WString(256, u'n') + u"/b"));

    WString longest(4095, u'd'); // the longest whole path: a separator every 100 bytes
    for (std::size_t i = 0; i < longest.size(); i += 100)
        longest[i] = u'/';
    EXPECT_TRUE(PathUtils::IsValidPath(longest));
    EXPECT_FALSE(PathUtils::IsValidPath(longest + u"f"));
}

TEST(ExistsOnDisk, FollowsLinksAndHonoursRequireDirectory) {
    TempTree tree;
    tree.MakeFile("file.MOV", "data");
    tree.MakeFile("Caf\xC3\xA9 \xF0\x9F\x8E\xAC.mov", "x");
    tree.MakeFolder("folder");
    tree.MakeSymlink("link-to-file", tree.NativePath("file.MOV"));
    tree.MakeSymlink("link-to-folder", "folder");
    tree.MakeSymlink("dangling", tree.NativePath("gone"));
    struct Case {
        std::string entry;
        bool exists, isDirectory;
    };
    const Case cases[] = {
        {"file.MOV", true, false},      {"folder", true, true},
        {"folder/", true, true},        {"link-to-file", true, false},
        {"link-to-folder", true, true}, {"dangling", false, false},
        {"missing", false, false},      {"Caf\xC3\xA9 \xF0\x9F\x8E\xAC.mov", true, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.entry);
        const WString path = tree.Path(c.entry);
        EXPECT_EQ(PathUtils::ExistsOnDisk(path, false), c.exists);
        EXPECT_EQ(PathUtils::ExistsOnDisk(path, true), c.isDirectory);
        EXPECT_EQ(PathUtils::IsDirectory(path), c.isDirectory);
    }
    EXPECT_FALSE(PathUtils::ExistsOnDisk(u"", false));
    EXPECT_FALSE(PathUtils::ExistsOnDisk(tree.Path("file.MOV") + WString(1, u'\0'), false));
}

TEST(NormalizePathWithoutUNC, ResolvesLexically) {
    struct Case {
        WString path, expected;
    };
    // Never above the root, but a relative path may start above itself.
    for (const Case& c : {Case{u"", u""}, Case{u"/", u"/"}, Case{u"//media//card/", u"/media/card"},
                          Case{u"/a/./b/.", u"/a/b"}, Case{u"/a/b/../c", u"/a/c"}, Case{u"/../a", u"/a"},
                          Case{u"/a/../..", u"/"}, Case{u"../a", u"../a"}, Case{u"a/../../b", u"../b"},
                          Case{u"../../", u"../.."}, Case{u"./a/", u"a"}, Case{u"a/..", u"."}}) {
        SCOPED_TRACE(Fnd::ToUTF8(c.path));
        EXPECT_EQ(Utilities::NormalizePathWithoutUNC(c.path), c.expected);
    }
    EXPECT_EQ(Utilities::CombinePaths(u"/a/b/..", u"c"), WString(u"/a/c"));
    EXPECT_EQ(Utilities::CombinePaths(u"", u"c"), WString(u"c"));
}

// Gathering asks only whether two paths share a filesystem, to follow a link to its folder there.
TEST(ArePathsRelative, OnlyOnTheSameFilesystemPlacingPathsNotYetMadeByTheirNearestAncestor) {
    TempTree tree;
    tree.MakeFile("a/clip.MOV", "x");
    WString way;
    EXPECT_TRUE(Utilities::ArePathsRelative(tree.Path("b/not/yet"), true, tree.Path("a/clip.MOV"), false, way));
    EXPECT_EQ(way, u"../../../a/clip.MOV");

    struct stat proc = {}, temp = {};
    if (::stat("/proc/self", &proc) != 0 || ::stat(tree.NativePath().c_str(), &temp) != 0 ||
        proc.st_dev == temp.st_dev)
        GTEST_SKIP() << "needs /proc on its own filesystem";
    EXPECT_FALSE(Utilities::ArePathsRelative(tree.Path(), true, u"/proc/self", true, way));
    EXPECT_FALSE(Utilities::ArePathsRelative(u"/proc/self/not-there", true, tree.Path("a"), true, way));
}

// Normalising a chosen path is checked where a user chooses one, in the open-file dialog's tests.
TEST(PathParts, FolderAndNameHaveOneAnswerForEveryShapeOfPath) {
    struct Case {
        std::string path, folder, name;
        WString directory, stem;
    };
    for (const Case& c :
         {Case{"/a/b.MOV", "/a", "b.MOV", u"/a/", u"b"}, Case{"/b", "/", "b", u"/", u"b"},
          Case{"b.tar.gz", ".", "b.tar.gz", u"./", u"b.tar"}, Case{"/a/", "/a", "", u"/a/", u""},
          Case{"/a//b", "/a", "b", u"/a/", u"b"}, Case{"a/.hidden", "a", ".hidden", u"a/", u".hidden"},
          Case{"/", "/", "", u"/", u""}, Case{"", ".", "", u"./", u""}}) {
        SCOPED_TRACE(c.path);
        EXPECT_EQ(PathUtils::FolderOf(c.path), c.folder);
        EXPECT_EQ(PathUtils::FileNameOf(c.path), c.name);
        const WString wide = Fnd::FromUTF8(c.path);
        EXPECT_EQ(PathUtils::FolderOf(wide), Fnd::FromUTF8(c.folder));
        EXPECT_EQ(PathUtils::FileNameOf(wide), Fnd::FromUTF8(c.name));
        EXPECT_EQ(PathUtils::DirectoryOf(wide), c.directory);
        EXPECT_EQ(PathUtils::StemOf(wide), c.stem);
    }
}

} // namespace igd::test
