#include "pipeline/entry/AdvanceRenameCounter.h"

#include "pipeline/naming/RenameCounter.h"
#include "settings/IngestSettingsController.h"

namespace IGD {

void AdvanceRenameCounter(const IIngestDialogData& session) {
    if (!session.IsRenameEnabled())
        return;
    const std::uint32_t step = RenameCounterStep(session);
    if (step == 0)
        return;
    IngestSettingsController& settings = *IngestSettingsController::GetInstance();
    settings.SetUserDefAutoIncStartNumber(settings.GetUserDefAutoIncStartNumber() + step);
}

} // namespace IGD
