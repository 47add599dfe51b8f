// Parts of a source that cannot be read: they fail the ingest, named, never pass for copied.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "apps/igd/IgdCommand.h"

namespace igd::test {
namespace {

constexpr uid_t kNobody = 65534;

// igd run by an unprivileged user, as root cannot be kept out of a folder; both outputs in one
// text. The whole tree is opened to that user, with a home of its own inside.
Ran RunIgdAsNobody(TempTree& tree, const std::vector<std::string>& arguments) {
    const std::string home = tree.NativePath("nobody-home");
    tree.MakeFolder("nobody-home");
    const std::string said = tree.NativePath("said.txt");
    EXPECT_EQ(::chmod(tree.NativePath().c_str(), 0777), 0);
    EXPECT_EQ(::chown(home.c_str(), kNobody, kNobody), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const int out = ::open(said.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        ::dup2(out, STDOUT_FILENO);
        ::dup2(out, STDERR_FILENO);
        ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO);
        if (::setgroups(0, nullptr) != 0 || ::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)
            ::_exit(126);
        ::setenv("IGD_HOME", home.c_str(), 1);
        ExecIgd(arguments);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return Ran{WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), ReadFileBytes(said), {}};
}

using IgdUnreadableSourceTest = IgdCommandTest;

TEST_F(IgdUnreadableSourceTest, AFolderThatCannotBeReadFailsTheIngestNamed) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs root to run igd as another user";
    tree.MakeFile("shoot/a.mov", "a");
    tree.MakeFile("shoot/locked/b.mov", "b");
    tree.MakeFile("shoot/c.mov", "c");
    ASSERT_EQ(::chmod(tree.NativePath("shoot/locked").c_str(), 0), 0);
    const Ran ran = RunIgdAsNobody(tree, {"ingest", Native("shoot"), "--to", Native("main")});
    ::chmod(tree.NativePath("shoot/locked").c_str(), 0755);

    EXPECT_EQ(ran.exitCode, 1) << ran.out;
    EXPECT_NE(ran.out.find("failed  " + Native("shoot/locked") + " -> " + Native("main/shoot/locked") +
                           ": source could not be read: Permission denied"),
              std::string::npos)
        << ran.out;
    EXPECT_NE(ran.out.find("2 copied, 0 skipped, 1 failed"), std::string::npos) << ran.out;
    EXPECT_EQ(ReadFileBytes(Native("main/shoot/c.mov")), "c");
}

TEST_F(IgdUnreadableSourceTest, FilesBelowTheLongestPathTheSystemTakesAreNamedAsFailed) {
    // Twenty folders of 250 bytes: 5,000 bytes to the file, beyond PATH_MAX.
    tree.MakeFile("shoot/top.mov", "top");
    int folder = ::open(tree.NativePath("shoot").c_str(), O_RDONLY | O_DIRECTORY);
    for (int level = 0; level < 20; ++level) {
        const std::string name = std::to_string(level + 10) + std::string(248, 'd');
        ASSERT_EQ(::mkdirat(folder, name.c_str(), 0755), 0);
        const int inner = ::openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY);
        ::close(folder);
        folder = inner;
    }
    const int leaf = ::openat(folder, "leaf.mov", O_WRONLY | O_CREAT, 0644);
    ASSERT_EQ(::write(leaf, "leaf", 4), 4);
    ::close(leaf);
    ::close(folder);

    const Ran ran = RunIgd({"ingest", Native("shoot"), "--to", Native("main")});
    EXPECT_EQ(ran.exitCode, 1) << ran.Said();
    std::string leafLine;
    for (std::size_t at = ran.out.find("failed  "); at != std::string::npos; at = ran.out.find("failed  ", at + 1)) {
        const std::string line = ran.out.substr(at, ran.out.find('\n', at) - at);
        if (line.find("/leaf.mov -> ") != std::string::npos)
            leafLine = line;
    }
    EXPECT_NE(leafLine.find("File name too long"), std::string::npos) << "the leaf file is named: " << leafLine;
    EXPECT_EQ(ReadFileBytes(Native("main/shoot/top.mov")), "top");
    // Removing the tree needs no path of that length either.
    std::filesystem::remove_all(tree.NativePath("shoot"));
}

} // namespace
} // namespace igd::test
