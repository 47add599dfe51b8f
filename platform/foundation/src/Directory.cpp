#include "Fnd/Directory.h"

#include <unistd.h>

#include "Fnd/PathUtils.h"

namespace Fnd::Directory {

bool IsDirectory(WStringView path) {
    return PathUtils::IsDirectory(path);
}

bool IsDirectoryWriteable(WStringView path) {
    if (path.empty() || !PathUtils::IsDirectory(path))
        return false;
    return ::access(ToUTF8(path).c_str(), W_OK | X_OK) == 0;
}

} // namespace Fnd::Directory
