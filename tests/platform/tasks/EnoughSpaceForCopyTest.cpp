#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cstdint>
#include <string>
#include <vector>

#include "QL/IngestUtils.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using QL::IngestUtils;
using Paths = std::vector<Fnd::WString>;

constexpr std::uint64_t kMiB = 1 << 20;

struct SpaceAnswer {
    bool enough;
    Fnd::WString failingPath;
    std::uint64_t missingBytes;
};

SpaceAnswer Ask(const Paths& sources, const Paths& destinations) {
    SpaceAnswer answer{false, u"unchanged", 12345};
    answer.enough =
        IngestUtils::EnoughSpaceForCopy(sources, destinations, answer.failingPath, answer.missingBytes);
    return answer;
}

std::uint64_t FreeBytes(const std::string& path) {
    struct statvfs space {};
    EXPECT_EQ(::statvfs(path.c_str(), &space), 0) << path;
    return static_cast<std::uint64_t>(space.f_bavail) * space.f_frsize;
}

// A file that claims size bytes but occupies no blocks, so that sizes near a disk's free space
// cost nothing to make.
Fnd::WString MakeSparseFile(TempTree& tree, const std::string& relative, std::uint64_t size) {
    const Fnd::WString path = tree.MakeFile(relative);
    EXPECT_EQ(::truncate(tree.NativePath(relative).c_str(), static_cast<off_t>(size)), 0);
    return path;
}

// A small tmpfs of known size, unmounted at the end; only root may make one.
class SmallTmpfs {
public:
    SmallTmpfs(TempTree& tree, const std::string& relative, std::uint64_t size)
        : path_(tree.NativePath(relative)) {
        tree.MakeFolder(relative);
        const std::string options = "size=" + std::to_string(size);
        mounted_ = ::mount("tmpfs", path_.c_str(), "tmpfs", 0, options.c_str()) == 0;
    }
    ~SmallTmpfs() {
        if (mounted_)
            ::umount2(path_.c_str(), MNT_DETACH);
    }
    bool Mounted() const { return mounted_; }

private:
    std::string path_;
    bool mounted_ = false;
};

TEST(EnoughSpaceForCopy, OnASmallTmpfsDestinationsOfOneFilesystemShareItsSpace) {
    TempTree tree;
    SmallTmpfs disk(tree, "disk", 1 * kMiB);
    if (!disk.Mounted())
        GTEST_SKIP() << "mounting a tmpfs was refused (not root, or no capability)";
    const Fnd::WString clip = tree.MakeFileOfSize("card/A001.MOV", 600 * 1024);
    const Fnd::WString a = tree.MakeFolder("disk/a");
    const Fnd::WString b = tree.Path("disk/b/not/yet"); // measured at its existing ancestor
    // Free space is read after the folders exist: each took blocks of the tmpfs.
    const std::uint64_t free = FreeBytes(tree.NativePath("disk"));

    const SpaceAnswer one = Ask({clip}, {a});
    EXPECT_TRUE(one.enough);

    const SpaceAnswer two = Ask({clip}, {a, b});
    ASSERT_FALSE(two.enough);
    EXPECT_EQ(two.failingPath, a);
    EXPECT_EQ(two.missingBytes, 2 * 600 * 1024 - free);

    const SpaceAnswer full = Ask({clip, tree.MakeFileOfSize("card/A002.MOV", 500 * 1024)}, {b});
    ASSERT_FALSE(full.enough);
    EXPECT_EQ(full.failingPath, b);
    EXPECT_EQ(full.missingBytes, 1100 * 1024 - free);
}

TEST(EnoughSpaceForCopy, TwoDestinationsOnOneFilesystemAreCountedTogether) {
    TempTree tree;
    const std::uint64_t free = FreeBytes(tree.NativePath());
    // 60% of the free space: one copy fits, two do not, whatever other processes write meanwhile
    // within a few percent.
    const std::uint64_t size = free / 10 * 6;
    const Fnd::WString clip = MakeSparseFile(tree, "card/A001.MOV", size);
    const Fnd::WString first = tree.MakeFolder("out1");
    const Fnd::WString second = tree.Path("out2/day1");

    EXPECT_TRUE(Ask({clip}, {first}).enough);
    EXPECT_TRUE(Ask({clip}, {second}).enough);

    const SpaceAnswer both = Ask({clip}, {first, second});
    ASSERT_FALSE(both.enough);
    EXPECT_EQ(both.failingPath, first);
    // The source rounds up to whole blocks; the free space moves a little with other writers.
    const double expectedMissing = 2.0 * static_cast<double>(size) - static_cast<double>(free);
    EXPECT_NEAR(static_cast<double>(both.missingBytes), expectedMissing, 0.02 * static_cast<double>(free));
}

TEST(EnoughSpaceForCopy, DestinationsOnDifferentFilesystemsAreCountedApart) {
    TempTree tree;
    struct stat work {
    }, shm{};
    if (::stat("/dev/shm", &shm) != 0 || ::stat(tree.NativePath().c_str(), &work) != 0 ||
        shm.st_dev == work.st_dev)
        GTEST_SKIP() << "no second filesystem at /dev/shm";
    const std::uint64_t smaller = std::min(FreeBytes(tree.NativePath()), FreeBytes("/dev/shm"));
    const Fnd::WString clip = MakeSparseFile(tree, "card/A001.MOV", smaller / 10 * 6);
    EXPECT_TRUE(Ask({clip}, {tree.MakeFolder("out"), u"/dev/shm/igd-space-test-not-created"}).enough);
}

TEST(EnoughSpaceForCopy, FolderSourcesCountTheirTreeOnceAndFollowNoLinks) {
    TempTree tree;
    const std::uint64_t free = FreeBytes(tree.NativePath());
    const Fnd::WString destination = tree.MakeFolder("out");
    // Larger than the whole disk, reachable only through a link.
    MakeSparseFile(tree, "elsewhere/huge.bin", 2 * free);
    tree.MakeSymlink("card/CLIPS/link.bin", "../../elsewhere/huge.bin");
    const Fnd::WString clip = MakeSparseFile(tree, "card/CLIPS/A001.MOV", free / 10 * 6);
    const Fnd::WString card = tree.Path("card");

    struct Case {
        const char* what;
        Paths sources;
        bool enough;
    };
    const std::vector<Case> cases{
        {"a folder with a link to a huge file", {card}, true},
        {"a folder and a file inside it", {card, clip, tree.Path("card/CLIPS")}, true},
        {"the same file twice", {clip, clip}, true},
        {"the same folder spelt with a trailing slash", {card, card + u"/"}, true},
        {"the huge file itself", {tree.Path("elsewhere/huge.bin")}, false},
        {"a missing source", {tree.Path("missing.MOV")}, true},
        {"no sources", {}, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const SpaceAnswer answer = Ask(c.sources, {destination});
        EXPECT_EQ(answer.enough, c.enough);
        if (!c.enough) {
            EXPECT_EQ(answer.failingPath, destination);
        }
    }
}

TEST(EnoughSpaceForCopy, AnEmptyDestinationFailsWithoutAPath) {
    TempTree tree;
    const Fnd::WString clip = tree.MakeFile("A001.MOV", "frames");
    const SpaceAnswer answer = Ask({clip}, {tree.MakeFolder("out"), u""});
    EXPECT_FALSE(answer.enough);
    EXPECT_EQ(answer.failingPath, u"");
    EXPECT_EQ(answer.missingBytes, 0u);
}

} // namespace
} // namespace igd::test
