#include "Mhl/IgnorePatterns.h"

#include <fnmatch.h>

#include "Mhl/History.h"

namespace Mhl {

bool IsIgnored(const std::string& relativePath, const std::vector<std::string>& patterns) {
    if (relativePath == kHistoryFolderName || relativePath.starts_with(std::string(kHistoryFolderName) + "/"))
        return true;
    for (const std::string& pattern : patterns) {
        if (pattern.empty())
            continue;
        if (pattern[0] == '/') {
            const std::string anchored = pattern.substr(1);
            // "/tmp" leaves out the folder tmp and everything in it.
            if (::fnmatch(anchored.c_str(), relativePath.c_str(), FNM_PATHNAME) == 0 ||
                relativePath.starts_with(anchored + "/"))
                return true;
            continue;
        }
        std::size_t begin = 0;
        while (begin <= relativePath.size()) {
            const std::size_t end = std::min(relativePath.find('/', begin), relativePath.size());
            if (::fnmatch(pattern.c_str(), relativePath.substr(begin, end - begin).c_str(), 0) == 0)
                return true;
            begin = end + 1;
        }
    }
    return false;
}

} // namespace Mhl
