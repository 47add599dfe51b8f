#pragma once
#include <cstddef>

namespace Fnd {

// Makes the XML parser ready for use in this process; safe to call from any thread, as often as
// wanted. It is never shut down, since documents may live until the process exits.
void EnsureXmlParser();

// How deep elements may nest in any document this project reads. Clip files, presets, settings
// and layouts stay below twenty levels; the bound only has to keep a hostile document from
// exhausting the stack of whatever walks the tree, recursively, after it is parsed.
inline constexpr unsigned kMaxXmlDepth = 256;

// The largest XML file read from a camera card. Clip and index files are kilobytes; a card is
// not ours, and a file this large is not one of them, whatever it claims.
inline constexpr std::size_t kMaxCardXmlBytes = std::size_t{16} << 20;

} // namespace Fnd
