#pragma once
// Runs the igd binary of this build, for tests of what a user sees on the command line.
//
//     const auto run = igd::test::RunIgd("presets list", home);
//     EXPECT_EQ(run.exitCode, 0);
#include <string>

namespace igd::test {

struct CommandRun {
    int exitCode = -1;
    std::string output; // stdout and stderr, interleaved as written
};

// igd with the arguments (taken by the shell as written) and, when igdHome is not empty,
// IGD_HOME set to it.
CommandRun RunIgd(const std::string& arguments, const std::string& igdHome = {});

// Quotes a path for the shell.
std::string ShellQuote(const std::string& text);

} // namespace igd::test
