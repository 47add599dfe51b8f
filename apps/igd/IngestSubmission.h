#pragma once
#include <cstdint>
#include <vector>

#include "Fnd/WString.h"
#include "fluxcore/Guid.h"

namespace igd {

// How `igd ingest` hands its request to the library. Both end in the start message, unless the
// user gave up at an existing target: then nothing is submitted or started.

// Files with at most one destination: through the host entry point DoIngestMedia, one call per
// file, all copies under the one batch given.
void SubmitThroughDoIngestMedia(const std::vector<Fnd::WString>& files, const Fnd::WString& destination,
                                std::uint32_t verifyMode, const fluxcore::utility::Guid& batch);

// Folders, or backups: a session for each folder the sources lie in, filled as the dialog fills
// it (items, destinations with the first as primary, verify mode, copy decisions), then the plan;
// all under the one batch given.
void SubmitThroughSessions(const std::vector<Fnd::WString>& sources,
                           const std::vector<Fnd::WString>& destinations, std::uint32_t verifyMode,
                           const fluxcore::utility::Guid& batch);

} // namespace igd
