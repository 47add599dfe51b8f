// A folder hashed again against its history: what a user of `igd verify` is told.
#include <gtest/gtest.h>

#include "Checksum/Checksum.h"
#include "Mhl/C4Id.h"
#include "Mhl/FileDigest.h"
#include "Mhl/FolderVerification.h"
#include "Mhl/IgnorePatterns.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

Mhl::FileHash Listed(const std::string& path, const std::string& format, const std::string& digest) {
    return {path, std::nullopt, "", {{format, digest, Mhl::kActionOriginal}}};
}

TEST(MhlFolderVerification, NamesAlteredMissingAndNewFilesAndPassesOverIgnoredOnes) {
    TempTree tree;
    tree.MakeFile("f/same.mov", "same");
    tree.MakeFile("f/sub/c4.mov", "by c4");
    tree.MakeFile("f/changed.mov", "changed");
    tree.MakeFile("f/new.mov", "new");
    tree.MakeFile("f/.DS_Store", "x");
    tree.MakeFile("f/cache/left.tmp", "x");
    tree.MakeFile("f/unknown.mov", "x");
    const std::string root = tree.NativePath("f");

    Mhl::Generation generation = Mhl::NewGeneration("transfer", 0, 0);
    generation.ignorePatterns = {".DS_Store", "/cache"};
    generation.hashes = {
        Listed("same.mov", "xxh64", Checksum::DigestHex(Checksum::Algorithm::Xxh64, "same", 4)),
        Listed("sub/c4.mov", "c4", Mhl::C4IdOf("by c4")),
        Listed("changed.mov", "md5", Checksum::DigestHex(Checksum::Algorithm::Md5, "before", 6)),
        Listed("gone.mov", "xxh128", "00"), Listed("unknown.mov", "sha1", "00")};
    Mhl::AppendGeneration(root, generation, 0);
    std::string error;
    const auto history = Mhl::History::Load(root, error);
    ASSERT_TRUE(history) << error;

    std::size_t calls = 0;
    const Mhl::FolderCheck check = Mhl::CheckFolder(root, *history, [&](std::size_t done, std::size_t total) {
        EXPECT_EQ(done, ++calls);
        EXPECT_EQ(total, 5u);
    });
    EXPECT_EQ(calls, 5u);
    ASSERT_EQ(check.matched.size(), 2u);
    EXPECT_EQ(check.matched[0].digests[0].action, Mhl::kActionVerified);
    ASSERT_EQ(check.altered.size(), 1u);
    EXPECT_EQ(check.altered[0].path, "changed.mov");
    EXPECT_EQ(check.altered[0].digests[0].action, Mhl::kActionFailed);
    EXPECT_EQ(check.missing, std::vector<std::string>{"gone.mov"});
    EXPECT_EQ(check.added, std::vector<std::string>{"new.mov"});
    EXPECT_EQ(check.uncheckable, std::vector<std::string>{"unknown.mov"});
    EXPECT_FALSE(check.AllMatch());

    std::vector<std::string> unreadable;
    const auto added = Mhl::HashAdded(root, check.added, "xxh128", unreadable);
    ASSERT_EQ(added.size(), 1u);
    EXPECT_EQ(added[0].digests[0].value, Checksum::DigestHex(Checksum::Algorithm::Xxh128, "new", 3));
    EXPECT_EQ(*added[0].size, 3u);
}

TEST(MhlFolderVerification, IgnorePatternsMatchNamesAnywhereOrPathsFromTheRoot) {
    const std::vector<std::string> patterns{"*.DS_Store", "/cache", "Thumbs.db"};
    EXPECT_TRUE(Mhl::IsIgnored("ascmhl/0001_a.mhl", {}));
    EXPECT_TRUE(Mhl::IsIgnored("a/b/.DS_Store", patterns));
    EXPECT_TRUE(Mhl::IsIgnored("cache/x/y.mov", patterns));
    EXPECT_TRUE(Mhl::IsIgnored("Thumbs.db", patterns));
    EXPECT_FALSE(Mhl::IsIgnored("a/cache/y.mov", patterns)) << "an anchored pattern holds at the root only";
    EXPECT_FALSE(Mhl::IsIgnored("a/ascmhl.mov", patterns));
}

TEST(MhlFolderVerification, AFileThatCannotBeReadIsNamed) {
    EXPECT_THROW(Mhl::DigestOfFile("/nonexistent/file", "md5"), std::system_error);
    EXPECT_THROW(Mhl::DigestOfFile("/dev/null", "sha1"), std::invalid_argument);
}

} // namespace
} // namespace igd::test
