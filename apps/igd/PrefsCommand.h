#pragma once
#include "CommandTable.h"

namespace igd {

// `igd prefs ls|get|set`: the library's preferences in the store under $IGD_HOME.
void RegisterPrefsCommand(CLI::App& app, CommandTable& table);

} // namespace igd
