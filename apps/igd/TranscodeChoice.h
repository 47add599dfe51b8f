#pragma once
#include <optional>
#include <string>

#include "IGD/IngestSequence.h"

namespace igd {

// A destination as --to gives it: FOLDER, or FOLDER:PRESET to transcode there with an encoder
// preset, FOLDER:EXPORTER:PRESET where two exporters offer presets of that name. The preset part
// is what follows the first ":" after the last "/", so a folder whose own name holds ":" is given
// with a trailing "/".
struct DestinationArgument {
    std::string folder;
    std::string preset; // empty: copy
};
DestinationArgument SplitDestinationArgument(const std::string& argument);

// Finds the preset among the installed encoders' presets, system ones first. Answers the error to
// print, or empty with the choice filled.
std::string FindTranscodePreset(const std::string& preset, IGD::DestinationTranscode& choice);

} // namespace igd
