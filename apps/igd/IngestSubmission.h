#pragma once
#include <cstdint>
#include <vector>

#include "Fnd/WString.h"
#include "fluxcore/Guid.h"
#include "pipeline/IngestDialogData.h"

namespace igd {

// What the command line chose, as the dialog's settings pane would hold it.
struct IngestChoices {
    std::vector<Fnd::WString> destinations; // the first is the primary; none: import where it lies
    Fnd::WString subFolder;                 // made inside every destination, when not empty
    std::uint32_t verifyMode = 0;
    IGD::PresetRef renamePreset;     // null: no renaming
    IGD::PresetRef metadataPreset;   // null: no metadata template
    std::uint32_t renameScope = 0;   // 0 every destination, 1 the primary only
    std::uint32_t metadataScope = 0; // the same
};

// Fills a gathered session with the choices.
void ApplyIngestChoices(IGD::IIngestDialogData& session, const IngestChoices& choices);

// Runs the dialog's Ingest handler over the sessions of one request, the items numbered across all
// of them: template checks, names, pre-flight chain, copy decisions. False when a check failed
// (its box has been shown) or the user gave up at an existing target; nothing has been submitted.
bool PrepareIngestSessions(const std::vector<IGD::IngestDialogDataRef>& sessions);

// Hands the prepared sessions to the task service under one batch and starts it; moves the stored
// start number of a custom counter on, as a finished dialog does.
void SubmitIngestSessions(const std::vector<IGD::IngestDialogDataRef>& sessions,
                          const fluxcore::utility::Guid& batch);

} // namespace igd
