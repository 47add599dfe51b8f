#pragma once
#include "CommandTable.h"

namespace igd {

// `igd probe FILE [--json] [--thumbnail OUT.png [--width N] [--at SECONDS]]`: what the frame
// service knows of a clip, and its poster frame written as PNG.
void RegisterProbeCommand(CLI::App& app, CommandTable& table);

} // namespace igd
