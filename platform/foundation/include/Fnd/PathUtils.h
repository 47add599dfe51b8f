#pragma once
// POSIX paths. A "drive" part is always empty here: the same drive means the same filesystem.
#include "Fnd/WString.h"

namespace Fnd::PathUtils {

// Joins with exactly one separator between the parts; an empty part gives the other.
WString CombinePaths(WStringView first, WStringView second);

// Splits into drive (always empty), directory (with its trailing separator), stem and extension
// (with its dot). A leading dot of a file name does not start an extension: ".profile" is a stem.
void SplitPath(WStringView path, WString* drive, WString* directory, WString* stem, WString* extension);

// The inverse of SplitPath: adds the separator after the directory and the dot before the
// extension when they are missing.
WString MakePath(WStringView drive, WStringView directory, WStringView stem, WStringView extension);

// With requireDirectory false, any kind of entry counts; a dangling link does not.
bool ExistsOnDisk(WStringView path, bool requireDirectory);
bool IsDirectory(WStringView path);

// Keeps the root "/" as it is.
WString RemoveTrailingSlash(WStringView path);

// Not empty, no NUL, every component within the filesystem's name length and the whole within
// the path length limit.
bool IsValidPath(WStringView path);

// A usable single file name: not empty, not "." or "..", no illegal character, not too long.
bool IsValidFileName(WStringView name);

// Removes \ / : * ? " < > | and control characters. Answers whether anything was removed.
bool RemoveIllegalFileNameCharacters(WString& name);

} // namespace Fnd::PathUtils
