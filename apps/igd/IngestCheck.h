#pragma once
#include <string>
#include <vector>

#include "Fnd/WString.h"

namespace igd {

// Checks what `igd ingest` was given before anything is submitted, so that bad input ends in one
// line that names the path rather than in half a batch. Missing destination folders are made.
// Answers the error, empty when all is well.
std::string CheckIngestInput(const std::vector<Fnd::WString>& sources,
                             const std::vector<Fnd::WString>& destinations);

} // namespace igd
