#include "LinkedFolder.h"

#include <sys/stat.h>

namespace QL::Engine {

bool FolderPathHasLink(const std::string& folder) {
    // Every component from the top: a folder yet to be made is no link, and nothing below it
    // exists either.
    for (std::size_t end = folder.find('/', 1);; end = folder.find('/', end + 1)) {
        const std::string component = folder.substr(0, end);
        struct stat status {};
        if (!component.empty()) {
            if (::lstat(component.c_str(), &status) != 0)
                return false;
            if (S_ISLNK(status.st_mode))
                return true;
        }
        if (end == std::string::npos)
            return false;
    }
}

} // namespace QL::Engine
