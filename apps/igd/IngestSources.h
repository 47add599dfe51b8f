#pragma once
#include <vector>

#include "Fnd/WString.h"
#include "pipeline/IngestDialogData.h"

namespace igd {

// The sources of `igd ingest`, absolute and normalised, in the order given, named once each.
// A ".xmp" file that is the sidecar of another source is dropped: it travels with its media, and
// naming it again (as `card/*` does) would copy it twice.
std::vector<Fnd::WString> DistinctSources(const std::vector<Fnd::WString>& sources);

// The sessions of one `igd ingest`, filled with items as the dialog's browser would tick them:
// a card root gives its clips and every other media file on it; a folder with cards directly
// inside gives their clips (the cards open together) and the other media in it, relative to
// itself; any other folder is one item, whole; a file gives its clip, the rest of the clip coming along when it lies on a card. Items
// that share a source root share a session, in the order of their first source; an item named
// twice is taken once.
std::vector<IGD::IngestDialogDataRef> GatherIngestSessions(const std::vector<Fnd::WString>& sources);

} // namespace igd
