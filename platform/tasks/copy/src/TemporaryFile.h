#pragma once
#include <string>

#include "QL/Engine/FileCopier.h"

namespace QL::Engine {

// Creates the temporary a copy is written to, beside its final path: the copier's hidden name,
// or a numbered variant when that is taken (a leftover, or another copy to the same name), never
// an existing file. Answers the descriptor (write only) and sets temporary, or answers -errno.
int CreateTemporaryFor(const std::string& finalPath, std::string& temporary);

// Removes a copy's temporary, if any, and clears the name. One that cannot be removed (a disk
// turned read-only keeps what was written so far) is named in the outcome's reason and kept as its
// leftover, so that the user hears where it is and a later resume removes it.
void RemoveTemporaryOf(std::string& temporary, CopyOutcome& outcome);

} // namespace QL::Engine
