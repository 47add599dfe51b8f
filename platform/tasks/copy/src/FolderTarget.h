#pragma once
#include <sys/stat.h>

#include "QL/Engine/FileCopier.h"

namespace QL::Engine {

// Makes the folder of one target of a folder entry, as its action says, and answers the outcome.
// A folder holds no data of its own, so meeting an existing folder is no conflict: the copies of
// its files merge into it.
CopyOutcome MakeFolderTarget(const CopyTarget& target, const struct stat& sourceStatus);

} // namespace QL::Engine
