#pragma once
#include <string>
#include <string_view>

namespace Fnd {

// Replaces (or creates) the file so that a crash leaves either the old content or the new,
// never a mix: writes a temporary beside it, flushes, renames over, flushes the folder. With
// replace false an existing file is left alone and the call answers false. Throws
// std::system_error naming the path when the disk refuses.
bool WriteFileAtomically(const std::string& path, std::string_view content, bool replace = true);

// The name WriteFileAtomically gave its temporary, should it be left by a crash, without the
// random part: "A001.xmp" for ".A001.xmp.k3Xz9Q". Empty for any other name.
std::string_view AtomicTemporaryTarget(std::string_view temporaryName);

} // namespace Fnd
