#pragma once
#include "CommandTable.h"

namespace igd {

// `igd plan`: what an ingest of a file would submit, printed without running it.
void RegisterPlanCommand(CLI::App& app, CommandTable& table);

} // namespace igd
