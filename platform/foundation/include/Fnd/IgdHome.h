#pragma once
#include <string>

namespace Fnd {

// Where presets, preferences, the project and the task journal live: $IGD_HOME, else
// $XDG_CONFIG_HOME/igd, else ~/.config/igd. Not created here.
std::string IgdHomeDirectory();

// A site file: $IGD_HOME/site/<name> when it exists, else /etc/igd/<name> (which may not exist).
std::string SiteFile(const std::string& name);

// Creates the folder and its parents. Throws std::system_error naming the path.
void EnsureDirectory(const std::string& path);

} // namespace Fnd
