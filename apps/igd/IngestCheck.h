#pragma once
#include <string>
#include <vector>

#include "Fnd/WString.h"

namespace igd {

// Checks what `igd ingest` was given before anything is submitted, so that bad input ends in one
// line that names the path rather than in half a batch: missing sources, and destinations that
// could only be made or written inside a source. A missing destination folder is then made where
// the folder holding it exists, and listed in made, so that the pre-flight chain finds it; a
// missing parent is refused. Should the chain refuse, RemoveMadeFolders takes them away again.
// Space, writability and the rest are left to that chain, which tells them as the dialog does.
// Answers the error, empty when all is well.
std::string CheckIngestInput(const std::vector<Fnd::WString>& sources,
                             const std::vector<Fnd::WString>& destinations,
                             std::vector<Fnd::WString>& made);

// Removes the folders CheckIngestInput made, those still empty: a refused ingest leaves no trace.
void RemoveMadeFolders(const std::vector<Fnd::WString>& made);

} // namespace igd
