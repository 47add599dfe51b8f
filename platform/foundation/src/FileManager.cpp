#include "Fnd/FileManager.h"

#include <spawn.h>
#include <sys/wait.h>

#include <string>
#include <thread>

#include "Fnd/PathUtils.h"

extern char** environ;

namespace Fnd {
namespace {

// A file URI: every byte outside the unreserved set and "/" is percent-encoded, so that blanks,
// "#" and non-ASCII names reach the file manager as they are on disk.
std::string FileUri(const std::string& path) {
    static const char hex[] = "0123456789ABCDEF";
    std::string uri = "file://";
    for (const unsigned char c : path) {
        const bool plain = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
                           c == '-' || c == '.' || c == '_' || c == '~' || c == '/';
        if (plain) {
            uri += static_cast<char>(c);
        } else {
            uri += '%';
            uri += hex[c >> 4];
            uri += hex[c & 15];
        }
    }
    return uri;
}

} // namespace

void ShowInFileManager(const WString& path) {
    const std::string file = ToUTF8(path);
    const std::string folder = ToUTF8(PathUtils::FolderOf(path));
    const std::string uri = FileUri(file);
    // The names travel as arguments, never inside the script, so no name can be read as a command.
    const char* script =
        "dbus-send --session --print-reply --dest=org.freedesktop.FileManager1 /org/freedesktop/FileManager1 "
        "org.freedesktop.FileManager1.ShowItems array:string:\"$1\" string:\"\" >/dev/null 2>&1 "
        "|| xdg-open \"$2\" >/dev/null 2>&1";
    const char* argv[] = {"sh", "-c", script, "sh", uri.c_str(), folder.c_str(), nullptr};
    pid_t child = 0;
    if (posix_spawn(&child, "/bin/sh", nullptr, nullptr, const_cast<char**>(argv), environ) != 0)
        return;
    // Reaped off the UI thread: the opener may take its time, and the caller must not wait for it.
    std::thread([child] {
        int status = 0;
        waitpid(child, &status, 0);
    }).detach();
}

} // namespace Fnd
