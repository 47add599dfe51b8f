#pragma once
// What `igd` answers its caller: scripts on set tell a failed copy from a mistyped command by it.

namespace igd {

// Everything asked for was done.
inline constexpr int kExitSuccess = 0;
// A check, a file or a task failed, or the user cancelled: nothing is lost, something is left undone.
inline constexpr int kExitFailure = 1;
// The command itself was wrong: a missing source, an unknown preset or field, a bad value.
inline constexpr int kExitBadInput = 2;

} // namespace igd
