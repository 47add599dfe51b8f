#pragma once
#include "Fnd/WString.h"

namespace fluxcore::utility::FileUtils {

// Replaces each illegal file-name character (the set of Fnd::PathUtils) by the replacement.
// Answers whether anything was replaced.
bool ReplaceIllegalFileNameCharacters(Fnd::WString& name, Fnd::WChar replacement);

// The folder that holds the path, without a trailing separator; "/" for a child of the root,
// empty for a bare name.
Fnd::WString GetParentPath(Fnd::WStringView path);

} // namespace fluxcore::utility::FileUtils
