#pragma once
#include "CommandTable.h"

namespace igd {

// `igd name FILE [--rename-preset NAME]`: what an ingest of the file would call it.
void RegisterNameCommand(CLI::App& app, CommandTable& table);

} // namespace igd
