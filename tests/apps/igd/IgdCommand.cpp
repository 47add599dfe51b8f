#include "apps/igd/IgdCommand.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

namespace igd::test {

void ExecIgd(const std::vector<std::string>& arguments) {
    std::vector<char*> argv{const_cast<char*>(IGD_BINARY)};
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    ::execv(IGD_BINARY, argv.data());
    ::_exit(127);
}

IgdProcess::IgdProcess(const std::vector<std::string>& arguments) {
    int out[2];
    int err[2];
    if (::pipe(out) != 0 || ::pipe(err) != 0)
        throw std::runtime_error("pipe");
    pid_ = ::fork();
    if (pid_ == 0) {
        ::dup2(out[1], STDOUT_FILENO);
        ::dup2(err[1], STDERR_FILENO);
        ::close(out[0]);
        ::close(err[0]);
        ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO);
        ExecIgd(arguments);
    }
    ::close(out[1]);
    ::close(err[1]);
    out_ = ::fdopen(out[0], "r");
    errFd_ = err[0];
}

IgdProcess::~IgdProcess() {
    if (pid_ > 0 && !reaped_) {
        ::kill(pid_, SIGKILL);
        Wait();
    }
    if (out_)
        std::fclose(out_);
    ::close(errFd_);
}

bool IgdProcess::ReadLine(std::string& line) {
    char* buffer = nullptr;
    std::size_t size = 0;
    const ssize_t got = ::getline(&buffer, &size, out_);
    if (got >= 0)
        line.assign(buffer, static_cast<std::size_t>(got) - (got > 0 && buffer[got - 1] == '\n' ? 1 : 0));
    std::free(buffer);
    return got >= 0;
}

std::string IgdProcess::RestOfOutput() {
    std::string all;
    for (std::string line; ReadLine(line);)
        all += line + "\n";
    return all;
}

std::string IgdProcess::ErrorOutput() {
    std::string all;
    char buffer[4096];
    for (ssize_t got; (got = ::read(errFd_, buffer, sizeof buffer)) > 0;)
        all.append(buffer, static_cast<std::size_t>(got));
    return all;
}

void IgdProcess::Signal(int signal) {
    ::kill(pid_, signal);
}

int IgdProcess::Wait() {
    int status = 0;
    ::waitpid(pid_, &status, 0);
    reaped_ = true;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

Ran Finish(IgdProcess& igd) {
    std::string out = igd.RestOfOutput();
    std::string err = igd.ErrorOutput();
    return Ran{igd.Wait(), std::move(out), std::move(err)};
}

Ran RunIgd(const std::vector<std::string>& arguments) {
    IgdProcess igd(arguments);
    return Finish(igd);
}

std::string SummaryNumber(const std::string& out, const std::string& name) {
    const std::size_t summary = out.rfind("{\"event\":\"summary\"");
    if (summary == std::string::npos)
        return "no summary";
    const std::string key = "\"" + name + "\":";
    const std::size_t from = out.find(key, summary) + key.size();
    return out.substr(from, out.find_first_of(",}", from) - from);
}

bool InHistory(const std::string& path) {
    return path.find("/ascmhl/") != std::string::npos || path.ends_with("/ascmhl");
}

} // namespace igd::test
