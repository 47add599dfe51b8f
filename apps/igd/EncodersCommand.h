#pragma once
#include "CommandTable.h"

namespace igd {

// `igd encoders [--json]`: the formats this build can transcode to, each with its shipped and its
// user's presets, and whether the linked FFmpeg has each preset's encoder.
void RegisterEncodersCommand(CLI::App& app, CommandTable& table);

} // namespace igd
