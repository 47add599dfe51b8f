#include "pipeline/gathering/GatherCheckedItems.h"

#include "pipeline/gathering/AddBrowserItems.h"

namespace IGD {

void GatherCheckedItems(IIngestDialogData& session, fluxmediabrowser::MediaBrowserView* browser) {
    if (!browser)
        return;
    CheckedItems checked;
    ClipSettings clipSettings;
    browser->GetChecked(checked, clipSettings);
    browser->OnNewRecentDirectory();
    AddBrowserItems(session, checked, clipSettings, browser->GetCurrentProvider(),
                    Fnd::ToUTF8(browser->GetCurrentDirPath()));
}

} // namespace IGD
