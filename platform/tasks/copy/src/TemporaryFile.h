#pragma once
#include <string>

namespace QL::Engine {

// Creates the temporary a copy is written to, beside its final path: the copier's hidden name,
// or a numbered variant when that is taken (a leftover, or another copy to the same name), never
// an existing file. Answers the descriptor (write only) and sets temporary, or answers -errno.
int CreateTemporaryFor(const std::string& finalPath, std::string& temporary);

} // namespace QL::Engine
