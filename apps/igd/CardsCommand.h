#pragma once
#include "CommandTable.h"

namespace igd {

// `igd cards PATH`: the clips of every camera card structure at PATH, with their files.
void RegisterCardsCommand(CLI::App& app, CommandTable& table);

} // namespace igd
