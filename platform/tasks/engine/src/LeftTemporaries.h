#pragma once
#include <string>
#include <vector>

#include "QL/Engine/Journal.h"

namespace QL::Engine {

// Every kind of temporary the engine may leave beside a file it writes, should its process die
// before the rename: the copy's partial file, numbered or not, and the temporary of the file's
// XMP sidecar. Resume sweeps by this one list: a new kind of temporary belongs here.
bool IsTemporaryFor(const std::string& entryName, const std::string& writtenName);

// Removes, from each folder the batch writes to, the temporaries left for the files it writes
// there; nothing else, and no other folder, is touched.
void RemoveLeftTemporaries(const std::vector<FileRecord>& files);

} // namespace QL::Engine
