#pragma once
#include "CommandTable.h"

namespace igd {

// `igd presets`: list, show, import, export and delete rename and metadata presets.
void RegisterPresetsCommand(CLI::App& app, CommandTable& table);

} // namespace igd
