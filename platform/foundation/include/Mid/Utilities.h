#pragma once
#include "Fnd/WString.h"

namespace Mid::Utilities {

// Lexically normalised absolute or relative path: repeated separators collapsed, "." segments
// dropped, ".." resolved where a parent is known, no trailing separator except for the root.
Fnd::WString NormalizePathWithoutUNC(Fnd::WStringView path);

// Normalises the first path, then joins the second to it.
Fnd::WString CombinePaths(Fnd::WStringView first, Fnd::WStringView second);

// Answers false when the two paths lie on different filesystems (for paths that do not exist
// yet, the nearest existing ancestor decides). Otherwise relative is the way from base to
// path: "." when they are the same, "sub/dir" below it, "../x" beside it.
bool ArePathsRelative(Fnd::WStringView base, bool baseIsFolder, Fnd::WStringView path, bool pathIsFolder,
                      Fnd::WString& relative);

// POSIX paths have no boot volume to add; the path is answered as it is.
Fnd::WString AddBootVolumePath(Fnd::WStringView path);

} // namespace Mid::Utilities
