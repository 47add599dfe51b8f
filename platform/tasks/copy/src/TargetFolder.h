#pragma once
#include <string>

#include "QL/Engine/FileCopier.h"

namespace QL::Engine {

// The folder a target is written into.

// Makes sure it stands: through the run's destination folders when the target has them, else
// made as needed. Empty, or the reason.
std::string PrepareFolderOf(const CopyTarget& target);

// A failure inside the folder (ENOENT on open or rename) said as what it is when the destination
// went away meanwhile: "destination is gone"; else the reason as given.
std::string FolderAwareReason(const CopyTarget& target, std::string reason);

} // namespace QL::Engine
