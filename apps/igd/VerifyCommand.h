#pragma once
#include "CommandTable.h"

namespace igd {

// `igd verify FOLDER`: the folder's files hashed again from the disk and compared with its ASC MHL
// history; `--record` adds what was found to the history as a new generation.
void RegisterVerifyCommand(CLI::App& app, CommandTable& table);

} // namespace igd
