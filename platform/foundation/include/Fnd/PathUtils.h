#pragma once
// POSIX paths. A "drive" part is always empty here: the same drive means the same filesystem.
#include <string>
#include <string_view>

#include "Fnd/WString.h"

namespace Fnd::PathUtils {

// The parts of a path by its last separator, narrow (UTF-8, as the system takes it) and wide.
// A path without a separator names an entry of the current folder, so its folder is "." and
// every folder answered here can be opened, statted or created as it is; the folder of an entry
// of the root is the root. The name after a trailing separator is empty.
//   "/a/b.MOV" -> folder "/a", name "b.MOV";  "/b" -> "/", "b";  "b" -> ".", "b";  "/a/" -> "/a", ""
std::string FolderOf(std::string_view path);
WString FolderOf(WStringView path);
std::string FileNameOf(std::string_view path);
WString FileNameOf(WStringView path);
// The folder with one trailing separator, ready for a name to be appended: "/a/b" -> "/a/",
// "/b" -> "/", "b" -> "./".
WString DirectoryOf(WStringView path);
// The file name without its extension, as SplitPath finds them.
WString StemOf(WStringView path);

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

// Absolute and lexically clean: "." and ".." resolved, repeated and trailing separators gone. A
// relative path is taken from the current directory.
WString ToNormalizedPath(WStringView path);
// Whether the path is already what ToNormalizedPath makes of it.
bool IsNormalizedPath(WStringView path);

// The extension with its dot, as SplitPath finds it; empty when there is none.
WString GetExtensionPart(WStringView path);
// The directory of the normalised path, with its trailing separator.
WString GetFullDirectoryPart(WStringView path);

namespace Win {
// Long paths elsewhere carry an extended-length prefix; a POSIX path has none and is answered as
// it is.
WString StripUNC(WStringView path);
} // namespace Win

} // namespace Fnd::PathUtils
