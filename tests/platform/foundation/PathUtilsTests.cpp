#include <gtest/gtest.h>

#include "Fnd/PathUtils.h"
#include "fluxcore/FileUtils.h"
#include "support/TempTree.h"

using Fnd::WString;
namespace PathUtils = Fnd::PathUtils;
namespace FileUtils = fluxcore::utility::FileUtils;

TEST(SplitPath, SplitsIntoDirectoryStemAndExtension) {
    struct Case {
        WString path, directory, stem, extension;
    };
    const Case cases[] = {
        {u"/a/b/clip.MOV", u"/a/b/", u"clip", u".MOV"},
        {u"/a/b/", u"/a/b/", u"", u""},
        {u"clip.tar.gz", u"", u"clip.tar", u".gz"},
        {u".profile", u"", u".profile", u""},
        {u"/home/u/.config", u"/home/u/", u".config", u""},
        {u"dir.d/readme", u"dir.d/", u"readme", u""},
        {u"/x/..", u"/x/", u"..", u""},
        {u"take.", u"", u"take", u"."},
        {u"/", u"/", u"", u""},
        {u"", u"", u"", u""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Fnd::ToUTF8(c.path));
        WString drive = u"stale", directory, stem, extension;
        PathUtils::SplitPath(c.path, &drive, &directory, &stem, &extension);
        EXPECT_EQ(drive, WString());
        EXPECT_EQ(directory, c.directory);
        EXPECT_EQ(stem, c.stem);
        EXPECT_EQ(extension, c.extension);
        EXPECT_EQ(PathUtils::MakePath(drive, directory, stem, extension), c.path);
    }
}

TEST(SplitPath, AcceptsNullForPartsNotWanted) {
    WString extension;
    PathUtils::SplitPath(u"/a/clip.mxf", nullptr, nullptr, nullptr, &extension);
    EXPECT_EQ(extension, WString(u".mxf"));
}

TEST(MakePath, AddsMissingSeparatorAndDot) {
    EXPECT_EQ(PathUtils::MakePath(u"", u"/a/b", u"clip", u"MOV"), WString(u"/a/b/clip.MOV"));
    EXPECT_EQ(PathUtils::MakePath(u"", u"", u"clip", u""), WString(u"clip"));
    EXPECT_EQ(PathUtils::MakePath(u"", u"/a/", u"", u""), WString(u"/a/"));
}

TEST(CombinePaths, PutsExactlyOneSeparatorBetween) {
    struct Case {
        WString first, second, expected;
    };
    const Case cases[] = {
        {u"/a", u"b", u"/a/b"}, {u"/a/", u"b", u"/a/b"}, {u"/a//", u"/b", u"/a/b"},  {u"/", u"b", u"/b"},
        {u"", u"b", u"b"},      {u"/a", u"", u"/a"},     {u"a", u"b/c/", u"a/b/c/"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Fnd::ToUTF8(c.first + u" + " + c.second));
        EXPECT_EQ(PathUtils::CombinePaths(c.first, c.second), c.expected);
    }
}

TEST(RemoveTrailingSlash, KeepsTheRoot) {
    EXPECT_EQ(PathUtils::RemoveTrailingSlash(u"/a/b/"), WString(u"/a/b"));
    EXPECT_EQ(PathUtils::RemoveTrailingSlash(u"/a//"), WString(u"/a"));
    EXPECT_EQ(PathUtils::RemoveTrailingSlash(u"/"), WString(u"/"));
    EXPECT_EQ(PathUtils::RemoveTrailingSlash(u"//"), WString(u"/"));
    EXPECT_EQ(PathUtils::RemoveTrailingSlash(u"a"), WString(u"a"));
    EXPECT_EQ(PathUtils::RemoveTrailingSlash(u""), WString());
}

TEST(GetParentPath, AnswersTheHoldingFolder) {
    struct Case {
        WString path, parent;
    };
    const Case cases[] = {
        {u"/a/b", u"/a"}, {u"/a/b/", u"/a"}, {u"/a//b", u"/a"}, {u"/a", u"/"},
        {u"a/b", u"a"},   {u"b", u""},       {u"/", u""},       {u"", u""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Fnd::ToUTF8(c.path));
        EXPECT_EQ(FileUtils::GetParentPath(c.path), c.parent);
    }
}

TEST(FileNameValidity, RefusesIllegalCharactersReservedNamesAndLongNames) {
    struct Case {
        WString name;
        bool valid;
    };
    const Case cases[] = {
        {u"clip 01 (copy).MOV", true},
        {u"...", true},
        {u"\xD83C\xDFAC take", true},
        {u"", false},
        {u".", false},
        {u"..", false},
        {u"a\\b", false},
        {u"a/b", false},
        {u"a:b", false},
        {u"a*b", false},
        {u"a?b", false},
        {u"a\"b", false},
        {u"a<b", false},
        {u"a>b", false},
        {u"a|b", false},
        {u"a\tb", false},
        {u"a\x1F", false},
        {WString(255, u'a'), true},
        {WString(256, u'a'), false},
        {WString(127, u'\xE9'), true},  // 254 bytes in UTF-8
        {WString(128, u'\xE9'), false}, // 256 bytes: the limit counts bytes, not characters
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Fnd::ToUTF8(c.name.substr(0, 20)));
        EXPECT_EQ(PathUtils::IsValidFileName(c.name), c.valid);
    }
}

TEST(FileNameValidity, RemoveAndReplaceIllegalCharacters) {
    WString name = u"a:b*c\x01?.mov";
    EXPECT_TRUE(PathUtils::RemoveIllegalFileNameCharacters(name));
    EXPECT_EQ(name, WString(u"abc.mov"));
    EXPECT_FALSE(PathUtils::RemoveIllegalFileNameCharacters(name));
    EXPECT_EQ(name, WString(u"abc.mov"));

    WString other = u"10:30/scene|2";
    EXPECT_TRUE(FileUtils::ReplaceIllegalFileNameCharacters(other, u'_'));
    EXPECT_EQ(other, WString(u"10_30_scene_2"));
    EXPECT_TRUE(PathUtils::IsValidFileName(other));
    EXPECT_FALSE(FileUtils::ReplaceIllegalFileNameCharacters(other, u'_'));

    WString untouched = u"x";
    EXPECT_THROW(FileUtils::ReplaceIllegalFileNameCharacters(untouched, u'/'), std::invalid_argument);
}

TEST(PathValidity, ChecksComponentAndWholeLength) {
    EXPECT_TRUE(PathUtils::IsValidPath(u"/media/card/clip.MOV"));
    EXPECT_TRUE(PathUtils::IsValidPath(u"relative/clip.MOV"));
    EXPECT_FALSE(PathUtils::IsValidPath(u""));
    EXPECT_FALSE(PathUtils::IsValidPath(WString(u"/a\0b", 4)));
    EXPECT_TRUE(PathUtils::IsValidPath(u"/a/" + WString(255, u'n')));
    EXPECT_FALSE(PathUtils::IsValidPath(u"/a/" + WString(256, u'n') + u"/b"));

    WString longest; // 4095 bytes: 39 components of "/" + 100 bytes, then "/" + 155
    for (int i = 0; i < 39; ++i)
        longest += u"/" + WString(100, u'd');
    longest += u"/" + WString(155, u'f');
    ASSERT_EQ(longest.size(), 4095u);
    EXPECT_TRUE(PathUtils::IsValidPath(longest));
    EXPECT_FALSE(PathUtils::IsValidPath(longest + u"f"));
}

class ExistsOnDiskTest : public ::testing::Test {
protected:
    void SetUp() override {
        tree.MakeFile("file.MOV", "data");
        tree.MakeFolder("folder");
        tree.MakeSymlink("link-to-file", tree.NativePath("file.MOV"));
        tree.MakeSymlink("link-to-folder", "folder");
        tree.MakeSymlink("dangling", tree.NativePath("gone"));
    }
    igd::test::TempTree tree;
};

TEST_F(ExistsOnDiskTest, FollowsLinksAndHonoursRequireDirectory) {
    struct Case {
        std::string entry;
        bool exists, isDirectory;
    };
    const Case cases[] = {
        {"file.MOV", true, false},     {"folder", true, true},         {"folder/", true, true},
        {"link-to-file", true, false}, {"link-to-folder", true, true}, {"dangling", false, false},
        {"missing", false, false},
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

TEST_F(ExistsOnDiskTest, FindsNamesOutsideASCII) {
    tree.MakeFile("Caf\xC3\xA9 \xF0\x9F\x8E\xAC.mov", "x");
    EXPECT_TRUE(PathUtils::ExistsOnDisk(tree.Path() + u"/Caf\xE9 \xD83C\xDFAC.mov", false));
}
