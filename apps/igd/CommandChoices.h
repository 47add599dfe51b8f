#pragma once
// The words of the command line for verification and existing targets, the same for every
// command that copies.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Fnd/WString.h"

namespace igd {

// "md5", "xxh128", "xxh3", "xxh64", "size", "bit", "none".
const std::vector<std::string>& VerifyWords();
// The session's verify mode for a word of VerifyWords.
std::uint32_t VerifyModeOf(const std::string& word);
// The verify method a host request names for it ("MD5", "xxh128", "FileSize", ...); empty for "none".
Fnd::WString VerifyMethodOf(const std::string& word);
// The word of a verify mode, as plans, reports and JSON events name it; the number for a mode
// without one.
std::string VerifyWordOf(std::uint32_t mode);

// "ask", "skip", "keep-both", "replace", "cancel".
const std::vector<std::string>& ConflictWords();
// The copy action settling every existing target, 0 to cancel; none for "ask".
std::optional<int> ConflictActionOf(const std::string& word);

} // namespace igd
