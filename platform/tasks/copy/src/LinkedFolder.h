#pragma once
#include <string>

namespace QL::Engine {

// Whether a folder on the way to a target is a symbolic link. A destination's own links are
// resolved before its targets are planned, so a link met here was put inside the destination by
// someone else: a copy written through it would land outside. The copier refuses such a target
// ("destination folder is a symbolic link") rather than creating or writing anything through it.
bool FolderPathHasLink(const std::string& folder);

inline constexpr const char kLinkedFolderReason[] = "destination folder is a symbolic link";

} // namespace QL::Engine
