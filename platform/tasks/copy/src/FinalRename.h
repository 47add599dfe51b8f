#pragma once
#include <functional>
#include <string>

#include "QL/Engine/FileCopier.h"

namespace QL::Engine {

// The last step of a copy: a verified temporary takes its final name.

// Gives from the name to unless something exists there meanwhile (EEXIST). 0 or an errno.
int RenameNoReplace(const std::string& from, const std::string& to);

// Keep both: gives from the first free name of target, target (1), target (2), ... and answers
// it in taken. 0 or an errno.
// nameTaken, when set, answers for names the filesystem would refuse as existing.
int RenameToFreeName(const std::string& from, const std::string& target, std::string& taken,
                     const std::function<bool(const std::string&)>& nameTaken = {});

// Gives a verified temporary the final name its target's action asks for (keep both: the first
// free numbered name; replace: over the old file, which stood until now; otherwise only where
// nothing stands). Sets finalPath and answers empty, or the reason ("target exists", ...). The
// caller flushes the folder.
std::string GiveFinalName(const CopyTarget& target, const std::string& temporary, const CopyHooks& hooks,
                          std::string& finalPath);

} // namespace QL::Engine
