#pragma once
#include "CommandTable.h"

namespace igd {

// `igd cards PATH`: the clips of every camera card structure at PATH, with their files.
void RegisterCardsCommand(CLI::App& app, CommandTable& table);

// Names on standard error each card file a provider refused since the last call, as command says
// it; true when there was one, since the listing or ingest then left a clip out.
bool ReportRefusedCardFiles(const char* command);

} // namespace igd
