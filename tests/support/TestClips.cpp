#include "support/TestClips.h"

#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace igd::test {

int RunProgram(const std::vector<std::string>& arguments) {
    std::vector<std::string> copies = arguments;
    std::vector<char*> argv;
    for (std::string& argument : copies)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        ::execvp(argv[0], argv.data());
        ::_exit(127);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) < 0)
        return 127;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

void MakeTestClip(const std::string& path, const TestClipOptions& clip) {
    const std::string duration = std::to_string(clip.seconds);
    std::vector<std::string> arguments{"ffmpeg", "-nostdin", "-loglevel", "error", "-y", "-f", "lavfi", "-i",
                                       "testsrc2=size=" + std::to_string(clip.width) + "x" +
                                           std::to_string(clip.height) + ":rate=" + clip.frameRate +
                                           ":duration=" + duration};
    if (clip.audio)
        arguments.insert(arguments.end(),
                         {"-f", "lavfi", "-i", "sine=frequency=440:sample_rate=48000:duration=" + duration});
    arguments.insert(arguments.end(), {"-c:v", clip.videoCodec});
    if (clip.audio)
        arguments.insert(arguments.end(), {"-c:a", clip.audioCodec});
    if (!clip.timecode.empty())
        arguments.insert(arguments.end(), {"-timecode", clip.timecode});
    arguments.insert(arguments.end(), clip.extraArguments.begin(), clip.extraArguments.end());
    arguments.push_back(path);

    if (RunProgram(arguments) != 0)
        throw std::runtime_error("ffmpeg could not make the test clip " + path);
}

} // namespace igd::test
