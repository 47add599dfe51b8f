#pragma once
#include <string>
#include <vector>

#include "IGD/IIngestDialogData.h"

namespace igd {

// Puts the KEY=VALUE texts of the command line into the fields of the templates that carry that
// key (both templates, when both do). Answers the error for a text without "=" or a key no
// template field carries; empty when every value found its field.
std::string SetTemplateValues(const std::vector<std::string>& assignments,
                              const std::vector<IGD::PresetRef>& templates);

} // namespace igd
