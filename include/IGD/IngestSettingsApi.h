#pragma once
// The Ingest options for a host that shows them in a window of its own. In this order: seed the
// settings with SetIngestSettings (a session with at least one destination), CreateIngestView and
// place the view, read the state with GetIngestSettings when the view tells of a change or when
// it is needed, CheckIngestSettings before acting on it, SavePersistedData to keep the
// destinations.
#include <functional>

#include "Fnd/WString.h"
#include "IGD/Export.h"
#include "IGD/IIngestDialogData.h"
#include "fluxui/ui/UI_SubView.h"
#include "fluxworkspace/Workspace.h"

namespace IGD {

using IngestViewRef = boost::intrusive_ptr<fluxui::ui::UI_SubView>;

// The settings pane without its button bar, over the settings as they stand: the summary, the
// Transfer section of this host and project, the metadata and rename templates, in a scroll view.
// onChanged runs after each change the person makes in it. The Qt front end presents it in any
// widget (igd::qt::NodePresenter).
IGD_EXPORT IngestViewRef CreateIngestView(fluxworkspace::workspace::Workspace* workspace,
                                          const std::function<void()>& onChanged);
// A new session holding what the view's settings say, its output names made. A null view gives a
// session of defaults.
IGD_EXPORT IngestDialogDataRef GetIngestSettings(const IngestViewRef& view);
// Picks the user presets of the paths given (an empty path leaves the session's preset), then
// seeds the settings from the session.
IGD_EXPORT void SetIngestSettings(IngestDialogDataRef& session, const Fnd::WString& renamePresetPath,
                                  const Fnd::WString& metadataPresetPath);
// The template checks of an ingest on the view's settings, their boxes over the view's window.
// True when they pass or the view is null.
IGD_EXPORT bool CheckIngestSettings(const IngestViewRef& view);
// Stores the destinations, their recent paths and the backup count.
IGD_EXPORT void SavePersistedData();

} // namespace IGD
