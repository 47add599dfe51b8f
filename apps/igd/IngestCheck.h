#pragma once
#include <string>
#include <vector>

#include "Fnd/WString.h"

namespace igd {

// Checks what `igd ingest` was given before anything is submitted, so that bad input ends in one
// line that names the path rather than in half a batch: missing sources, and destinations that
// could only be made or written inside a source. Missing destination folders are then made where
// the folder holding them exists, and listed in made; a missing parent is refused. Space,
// writability and the rest are left to the pre-flight chain, which tells them as the dialog does.
// Answers the error, empty when all is well.
std::string CheckIngestInput(const std::vector<Fnd::WString>& sources,
                             const std::vector<Fnd::WString>& destinations,
                             std::vector<Fnd::WString>& made);

} // namespace igd
