#include "support/TestClips.h"

#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace igd::test {

void MakeTestClip(const std::string& path, const TestClipSpec& spec) {
    const std::string duration = std::to_string(spec.seconds);
    std::vector<std::string> arguments{"ffmpeg", "-nostdin", "-loglevel", "error", "-y", "-f", "lavfi", "-i",
                                       "testsrc2=size=" + std::to_string(spec.width) + "x" +
                                           std::to_string(spec.height) + ":rate=" + spec.frameRate +
                                           ":duration=" + duration};
    if (spec.audio)
        arguments.insert(arguments.end(),
                         {"-f", "lavfi", "-i", "sine=frequency=440:sample_rate=48000:duration=" + duration});
    arguments.insert(arguments.end(), {"-c:v", spec.videoCodec});
    if (spec.audio)
        arguments.insert(arguments.end(), {"-c:a", spec.audioCodec});
    if (!spec.timecode.empty())
        arguments.insert(arguments.end(), {"-timecode", spec.timecode});
    arguments.insert(arguments.end(), spec.extraArguments.begin(), spec.extraArguments.end());
    arguments.push_back(path);

    std::vector<char*> argv;
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        ::execvp("ffmpeg", argv.data());
        ::_exit(127);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) < 0 || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error("ffmpeg could not make the test clip " + path);
}

} // namespace igd::test
