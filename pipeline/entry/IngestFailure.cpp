#include "pipeline/entry/IngestFailure.h"

#include "fluxcore/ZString.h"
#include "fluxui/Messagebox.h"

namespace IGD {

bool ShowIngestFailure(const Fnd::WString& text) {
    constexpr int kErrorIcon = 16;
    AppFrame::MessageBoxW(
        text, fluxcore::Localize("$$$/Quillon/Libraries/IngestDialog/IngestDialogErrorTitle=Ingest Failure"),
        AppFrame::kMessageBoxOK, kErrorIcon, AppFrame::kResultOK);
    return false;
}

} // namespace IGD
