#pragma once
// The Ingest button's work for a host that has no dialog, in the dialog's own order: gather what
// was named, put the settings into the sessions, run the checks that may stop it (each shows its
// box and answers false), take the copy decisions, then plan and start the batch. The dialog's
// handler runs the same steps, so a host and the dialog refuse, ask and name alike.
#include <cstdint>
#include <optional>
#include <vector>

#include "Fnd/Date.h"
#include "Fnd/WString.h"
#include "IGD/Export.h"
#include "IGD/IIngestDialogData.h"
#include "QL/MetadataFieldSet.h"
#include "fluxcore/Guid.h"

namespace IGD {

// The encoder preset a destination transcodes with, by the names the encoder list gives.
struct DestinationTranscode {
    Fnd::WString exporterName;
    Fnd::WString presetName;
};

// What the settings pane would hold for one ingest.
struct IngestChoices {
    std::vector<Fnd::WString> destinations; // the first is the primary; none: import where it lies
    Fnd::WString subFolder;                 // made inside every destination, when not empty
    std::uint32_t verifyMode = 0;
    PresetRef renamePreset;          // null: no renaming
    PresetRef metadataPreset;        // null: no metadata template
    std::uint32_t renameScope = 0;   // 0 every destination, 1 the primary only
    std::uint32_t metadataScope = 0; // the same
    // The first number of a custom counter field; without it, where the last ingest left it.
    std::optional<std::uint32_t> startNumber;
    // By destination: the preset it transcodes with, or nothing to copy. Destinations past the end
    // copy.
    std::vector<std::optional<DestinationTranscode>> transcodes;
    // Not empty: the primary stitches every clip into one file of this name (it must transcode).
    Fnd::WString stitchName;
};

// The sources in the order given, absolute, each once. A ".xmp" file that is the sidecar of
// another source is dropped: it travels with its media, and naming it again (as `card/*` does)
// would copy it twice.
IGD_EXPORT std::vector<Fnd::WString> DistinctIngestSources(const std::vector<Fnd::WString>& sources);

// The sessions of one request, filled as the media browser would tick the sources: a card root
// gives its clips and every other media file on it; a folder with cards directly inside gives
// their clips (the cards open together) and the other media in it, relative to itself; any other
// folder is one item, whole; a file gives its clip, the rest of the clip coming along when it lies
// on a card. Items that share a source root share a session, in the order of their first source;
// an item named twice is taken once.
IGD_EXPORT std::vector<IngestDialogDataRef> GatherIngestSources(const std::vector<Fnd::WString>& sources);

// Loads the stored settings, then puts the choices into them and into every session, as the
// settings pane does before the checks.
IGD_EXPORT void ApplyIngestChoices(const std::vector<IngestDialogDataRef>& sessions,
                                   const IngestChoices& choices);

// The verify mode of the dialog's checksum row: the checksum the stored preferences name, MD5
// unless set or while the site locks the settings.
IGD_EXPORT std::uint32_t StoredChecksumVerifyMode();

// The rename template the dialog would use: the stored one when renaming is on, else null.
IGD_EXPORT PresetRef StoredRenameTemplate();

// From the template checks to the pre-flight chain, over the sessions of one request with their
// items numbered across all of them. False after one box when the ingest must not go on.
IGD_EXPORT bool CheckIngestSessions(const std::vector<IngestDialogDataRef>& sessions, Fnd::Date now);

// The minimum metadata of the site's panel, asked for the sessions' items (full paths, in order)
// between the checks and the completion. Waits for the panel's answer, draining the default run
// loop (a modeless panel until it answers or is unloaded). Answers nothing when the ingest must not
// go on: the panel was cancelled, closed without an answer, or went away; an empty result when no
// panel is asked for.
IGD_EXPORT std::optional<QL::MinimumMetadataResult>
AskMinimumMetadata(const std::vector<IngestDialogDataRef>& sessions);

// After the minimum metadata is known: the custom data and the copy decisions go into every
// session, and the stored start number of a custom counter moves on. False when the user gave up
// at a target that exists; nothing is then submitted and the counter stays.
IGD_EXPORT bool CompleteIngestSessions(const std::vector<IngestDialogDataRef>& sessions,
                                       const QL::MinimumMetadataResult& minimumMetadata = {});

// Hands the completed sessions to the task service under one batch and starts it.
IGD_EXPORT void StartIngestSessions(const std::vector<IngestDialogDataRef>& sessions,
                                    const fluxcore::utility::Guid& batch);

} // namespace IGD
