#pragma once
#include "CommandTable.h"

namespace igd {

// `igd project init` and `igd project ls`: create a project file, and show what one holds.
void RegisterProjectCommands(CLI::App& app, CommandTable& table);

} // namespace igd
