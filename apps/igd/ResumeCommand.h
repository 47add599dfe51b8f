#pragma once
#include "CommandTable.h"

namespace igd {

// `igd resume [BATCH]`: finishes the batches a crash interrupted.
void RegisterResumeCommand(CLI::App& app, CommandTable& table);

} // namespace igd
