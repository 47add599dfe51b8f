#pragma once
// The settings pane of the Ingest dialog on its own, in the dialog's form with its bar, for the
// desktop host and for the tests of a front end.
#include "IGD/Export.h"
#include "fluxui/ui/UI_Node.h"

namespace IGD {

struct SettingsPanePreview {
    fluxui::ui::UI_NodeRef pane;   // the setting view, sized as asked
    fluxui::ui::UI_NodeRef dialog; // holds the bar's Cancel button; keep it while the pane lives
};

// The pane over the settings stored under $IGD_HOME as the dialog loads them, with transfer and
// both templates switched on and every section, nested ones too, open, so that each part shows.
// The primary destination is given a folder under $IGD_HOME when it has none. Nothing is stored.
// Needs the preference store and the preset service installed.
IGD_EXPORT SettingsPanePreview BuildSettingsPanePreview(float width, float height);

} // namespace IGD
