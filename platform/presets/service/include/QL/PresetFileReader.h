#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "QL/PresetDocument.h"

namespace QL {

// Larger files are not presets; refusing them keeps a wrong pick in the install dialog cheap.
inline constexpr std::size_t kMaxPresetFileSize = 1u << 20;

// Either a document or the reason, in words a user can act on, why there is none.
struct PresetReadResult {
    std::optional<PresetDocument> document;
    std::string error;

    explicit operator bool() const { return document.has_value(); }
};

// Reads a preset file of any version this build knows, upgrading older versions in memory (the
// file itself is never rewritten). Never throws for what a file contains.
PresetReadResult ReadPresetFile(const std::string& path);
PresetReadResult ParsePresetDocument(std::string_view bytes);

} // namespace QL
