#pragma once
// The host's calls around the Ingest dialog.
#include "Fnd/WString.h"
#include "IGD/Export.h"

namespace IGD {

// Called once at start: declares the "ingestdialog" shortcut context and its commands.
IGD_EXPORT void IngestDialogRegister();

// Opens the Ingest dialog over the workspace's main window and, when the user pressed Ingest and
// every check passed, submits the batch and starts it for targetBin. Without a workspace nothing
// happens. The dialog's place and size are remembered in the preferences.
IGD_EXPORT void DoIngestDialogAndPerformImport(const Fnd::WString& targetBin);

// Lets go of the images and layouts that an embedded settings view loaded; the next dialog or
// view loads them again. Call it before IngestDialogTerminate.
IGD_EXPORT void ReleaseIngestResHandlers();

// Called once at exit: the settings model lets go of its destinations and presets.
IGD_EXPORT void IngestDialogTerminate();

} // namespace IGD
