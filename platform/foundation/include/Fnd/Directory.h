#pragma once
#include "Fnd/WString.h"

namespace Fnd::Directory {

// An existing directory, or a link to one.
bool IsDirectory(WStringView path);

// Whether this process may create files in the directory: it exists, and writing and searching
// it are allowed. A read-only filesystem answers false.
bool IsDirectoryWriteable(WStringView path);

} // namespace Fnd::Directory
