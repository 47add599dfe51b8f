#include "SourceChange.h"

#include <cerrno>

#include "ErrorText.h"

namespace QL::Engine {

std::string ChangedWhileRead(int fd, const struct stat& opened, std::uint64_t bytesRead) {
    struct stat now {};
    if (::fstat(fd, &now) != 0)
        return Because("source could not be read", errno);
    const bool unchanged = static_cast<std::uint64_t>(opened.st_size) == bytesRead && now.st_size == opened.st_size &&
                           now.st_mtim.tv_sec == opened.st_mtim.tv_sec &&
                           now.st_mtim.tv_nsec == opened.st_mtim.tv_nsec;
    if (!unchanged)
        return "source could not be read: it changed while it was being read";
    if (now.st_nlink == 0)
        return "source could not be read: it was removed while it was being read";
    return {};
}

} // namespace QL::Engine
