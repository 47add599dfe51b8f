#pragma once
// Encoder preset files: one preset per file, XML of our own, written by hand or shipped with the
// build. A file says which exporter it belongs to; the exporter decides the container.
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "Av/EncoderSettings.h"
#include "Fnd/WString.h"

namespace Av {

// Without a dot; files with another extension in a preset folder are not presets.
inline constexpr std::string_view kEncoderPresetExtension = "igdencoder";
inline constexpr int kEncoderPresetVersion = 1;
// A preset is well under a kilobyte; anything far larger is not one.
inline constexpr std::size_t kMaxEncoderPresetBytes = 64 * 1024;

struct EncoderPresetDocument {
    Fnd::WString name;
    Fnd::WString exporter; // the exporter's display name
    // Where a shipped preset stands among those of its exporter; absent: after those that say.
    std::optional<int> order;
    // container and extension stay empty: they come from the exporter.
    EncoderSettings settings;
};

struct EncoderPresetReadResult {
    std::optional<EncoderPresetDocument> document;
    std::string error; // why not, as the end of a sentence that starts with the file's name
    explicit operator bool() const { return document.has_value(); }
};

EncoderPresetReadResult ParseEncoderPresetDocument(std::string_view bytes);
EncoderPresetReadResult ReadEncoderPresetFile(const std::string& path);

} // namespace Av
