#pragma once
// The Ingest handler's work between pulling the user's choices into the session and handing the
// plan over: the checks that may stop it, the names, the new clip ids and the copy decisions. The
// dialog runs it, and so does a host that ingests without one, so that both refuse and ask alike.
#include <cstdint>
#include <vector>

#include "Fnd/Date.h"
#include "IGD/IIngestDialogData.h"
#include "QL/MetadataFieldSet.h"

namespace fluxui::ui {
class UI_Node;
}

namespace IGD {

// From the template checks to the pre-flight chain, in the handler's order. False after one box
// when the ingest must not go on; the session keeps its content. Items are numbered from
// firstCounter, so that a request spread over several sessions counts its items once; custom
// counter fields start at startNumber, the settings' start number.
bool CheckIngestRequest(IIngestDialogData& session, fluxui::ui::UI_Node* parent, Fnd::Date now,
                        std::uint32_t firstCounter, std::uint32_t startNumber);

// The full paths of the session's items, in order: the files a minimum-metadata panel describes.
std::vector<Fnd::WString> FullItemPaths(const IIngestDialogData& session);

// After the minimum metadata is known: the custom data (with the metadata template's values when
// it is on) and the copy decisions go into the session. False when the user gave up at a target
// that exists; the session then holds no decisions and the request must not be submitted.
bool CompleteIngestRequest(IIngestDialogData& session, const QL::MinimumMetadataResult& minimumMetadata);

} // namespace IGD
