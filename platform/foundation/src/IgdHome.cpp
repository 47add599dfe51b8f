#include "Fnd/IgdHome.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace Fnd {
namespace {

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

bool IsFile(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

} // namespace

std::string IgdHomeDirectory() {
    if (std::string home = Environment("IGD_HOME"); !home.empty())
        return home;
    if (std::string config = Environment("XDG_CONFIG_HOME"); !config.empty())
        return config + "/igd";
    return Environment("HOME") + "/.config/igd";
}

std::string SiteFile(const std::string& name) {
    const std::string local = IgdHomeDirectory() + "/site/" + name;
    return IsFile(local) ? local : "/etc/igd/" + name;
}

void EnsureDirectory(const std::string& path) {
    if (path.empty())
        return;
    for (std::size_t slash = path.find('/', 1);; slash = path.find('/', slash + 1)) {
        const std::string prefix = path.substr(0, slash);
        if (::mkdir(prefix.c_str(), 0755) != 0 && errno != EEXIST)
            throw std::system_error(errno, std::generic_category(), prefix);
        if (slash == std::string::npos)
            break;
    }
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0 || !S_ISDIR(info.st_mode))
        throw std::system_error(ENOTDIR, std::generic_category(), path);
}

} // namespace Fnd
