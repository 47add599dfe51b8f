#include <gtest/gtest.h>

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

// Sizes near a disk's free space cost nothing to make when the file occupies no blocks.
class EnoughSpaceForCopy : public ::testing::Test {
protected:
    Fnd::WString Sparse(const std::string& relative, std::uint64_t size) {
        const Fnd::WString path = tree.MakeFile(relative);
        EXPECT_EQ(::truncate(tree.NativePath(relative).c_str(), static_cast<off_t>(size)), 0);
        return path;
    }

    TempTree tree;
    const std::uint64_t free = FreeBytes(tree.NativePath());
};

// Sources of 60% of the free space: one copy fits, two do not, whatever other processes write
// meanwhile within a few percent.
TEST_F(EnoughSpaceForCopy, DestinationsAndSourcesOfOneFilesystemAreCountedTogether) {
    const Fnd::WString clip = Sparse("card/A001.MOV", free / 10 * 4);
    const Fnd::WString more = Sparse("card/A002.MOV", free / 10 * 2);
    const Fnd::WString first = tree.MakeFolder("out1");
    const Fnd::WString second = tree.Path("out2/day1"); // measured at its existing ancestor

    EXPECT_TRUE(Ask({clip, more}, {first}).enough);
    EXPECT_TRUE(Ask({clip, more}, {second}).enough);
    for (const Paths& destinations : {Paths{first, second}, Paths{second, first}}) {
        const SpaceAnswer both = Ask({clip, more}, destinations);
        ASSERT_FALSE(both.enough);
        EXPECT_EQ(both.failingPath, destinations[0]);
        // The sources round up to whole blocks; the free space moves a little with other writers.
        const double missing = 2.0 * static_cast<double>(free / 10 * 6) - static_cast<double>(free);
        EXPECT_NEAR(static_cast<double>(both.missingBytes), missing, 0.02 * static_cast<double>(free));
    }
}

TEST_F(EnoughSpaceForCopy, DestinationsOnDifferentFilesystemsAreCountedApart) {
    struct stat work {}, shm{};
    if (::stat("/dev/shm", &shm) != 0 || ::stat(tree.NativePath().c_str(), &work) != 0 ||
        shm.st_dev == work.st_dev)
        GTEST_SKIP() << "no second filesystem at /dev/shm";
    const std::uint64_t smaller = std::min(free, FreeBytes("/dev/shm"));
    const Fnd::WString clip = Sparse("card/A001.MOV", smaller / 10 * 6);
    EXPECT_TRUE(Ask({clip}, {tree.MakeFolder("out"), u"/dev/shm/igd-space-test-not-created"}).enough);
}

TEST_F(EnoughSpaceForCopy, FolderSourcesCountTheirTreeOnceAndFollowNoLinks) {
    const Fnd::WString destination = tree.MakeFolder("out");
    // Larger than the whole disk, reachable only through a link.
    Sparse("elsewhere/huge.bin", 2 * free);
    tree.MakeSymlink("card/CLIPS/link.bin", "../../elsewhere/huge.bin");
    const Fnd::WString clip = Sparse("card/CLIPS/A001.MOV", free / 10 * 6);
    const Fnd::WString card = tree.Path("card");
    struct Case {
        const char* what;
        Paths sources;
        bool enough;
    };
    for (const Case& c : {Case{"a folder with a link to a huge file", {card}, true},
                          Case{"a folder and a file inside it", {card, clip, tree.Path("card/CLIPS")}, true},
                          Case{"the same file twice", {clip, clip}, true},
                          Case{"the same folder spelt with a trailing slash", {card, card + u"/"}, true},
                          Case{"the huge file itself", {tree.Path("elsewhere/huge.bin")}, false},
                          Case{"a missing source", {tree.Path("missing.MOV")}, true}}) {
        SCOPED_TRACE(c.what);
        const SpaceAnswer answer = Ask(c.sources, {destination});
        EXPECT_EQ(answer.enough, c.enough);
        EXPECT_EQ(answer.failingPath, c.enough ? u"unchanged" : destination);
    }
}

// An ingest cut short by a full disk: the copies made stand in the destination and need no
// second room, so the rest can be finished on the same disk.
TEST_F(EnoughSpaceForCopy, FilesAlreadyStandingInTheDestinationNeedNoSpace) {
    const Fnd::WString card = tree.MakeFolder("card");
    const Fnd::WString first = Sparse("card/A001.MOV", free / 10 * 3);
    Sparse("card/A002.MOV", free / 10 * 3);
    const Fnd::WString destination = tree.MakeFolder("out");
    ASSERT_TRUE(Ask({card}, {destination}).enough) << "all of it fits once";
    ASSERT_FALSE(Ask({card}, {destination, tree.MakeFolder("backup")}).enough) << "but not twice";

    Sparse("out/card/A001.MOV", free / 10 * 3);
    EXPECT_TRUE(Ask({card}, {destination, tree.Path("backup")}).enough) << "a copy stands in out";
    EXPECT_FALSE(Ask({first, tree.Path("card/A002.MOV")}, {destination, tree.Path("backup")}).enough)
        << "files named one by one land in out itself, where none stands";

    // Another file of that name is no copy: it is kept, and the new one needs its room.
    ASSERT_EQ(::truncate(tree.NativePath("out/card/A001.MOV").c_str(), 5), 0);
    EXPECT_FALSE(Ask({card}, {destination, tree.Path("backup")}).enough);
}

TEST_F(EnoughSpaceForCopy, AnEmptyDestinationFailsWithoutAPath) {
    const SpaceAnswer answer = Ask({tree.MakeFile("A001.MOV", "frames")}, {tree.MakeFolder("out"), u""});
    EXPECT_FALSE(answer.enough);
    EXPECT_EQ(answer.failingPath, u"");
    EXPECT_EQ(answer.missingBytes, 0u);
}

} // namespace
} // namespace igd::test
