#pragma once
#include "Fnd/WString.h"

namespace fluxcore::utility::FileUtils {

// Replaces each illegal file-name character (the set of Fnd::PathUtils) by the replacement.
// Answers whether anything was replaced.
bool ReplaceIllegalFileNameCharacters(Fnd::WString& name, Fnd::WChar replacement);

// The folder that holds the path, without a trailing separator: "/" for a child of the root, "."
// for a bare name (the one answer for "no folder", as Fnd::PathUtils::FolderOf gives it), empty for
// the root itself, which nothing holds.
Fnd::WString GetParentPath(Fnd::WStringView path);

} // namespace fluxcore::utility::FileUtils
