#pragma once
#include <string>

namespace QL::Engine {

// Names the copier gives files beside a target: its temporaries and the numbered names of keep
// both.

// The n-th temporary for a final path: n 0 is FileCopier::TemporaryPathFor, the others are used
// when that name is taken (a leftover of a crash, or another copy to the same name).
std::string TemporaryVariant(const std::string& finalPath, unsigned n);

// Whether a file name is one of those temporaries: hidden, with the copier's own suffix.
bool IsTemporaryFileName(const std::string& fileName);

// Whether the temporary's name is that of a temporary for the final name, numbered or not.
bool IsTemporaryFileNameFor(const std::string& temporaryName, const std::string& finalName);

// The n-th name a user expects for a second copy: "A001.MOV" for 0, "A001 (1).MOV" for 1, ...
// A folder's name is numbered as a whole; a file keeps its extension last. A leading dot is part
// of the name, not an extension.
std::string NumberedPath(const std::string& path, unsigned n, bool isFolder);

} // namespace QL::Engine
