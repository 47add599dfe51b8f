#include "apps/igd/IgdCommand.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>

namespace igd::test {

std::string ShellQuote(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

CommandRun RunIgd(const std::string& arguments, const std::string& igdHome) {
    std::string command;
    if (!igdHome.empty())
        command = "IGD_HOME=" + ShellQuote(igdHome) + " ";
    command += ShellQuote(IGD_BINARY) + " " + arguments + " 2>&1";
    CommandRun run;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr)
        return run;
    std::array<char, 4096> buffer{};
    while (std::fgets(buffer.data(), buffer.size(), pipe) != nullptr)
        run.output += buffer.data();
    const int status = ::pclose(pipe);
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

} // namespace igd::test
