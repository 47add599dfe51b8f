#pragma once
#include "CommandTable.h"

namespace igd {

// `igd ingest` and `igd resume`: run the task service for real, to completion.
void RegisterIngestCommands(CLI::App& app, CommandTable& table);

} // namespace igd
