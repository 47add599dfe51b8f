#include "pipeline/entry/AdvanceRenameCounter.h"

#include <stdexcept>

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
    const std::optional<std::uint32_t> next = NextStartNumber(settings.GetUserDefAutoIncStartNumber(), step);
    // The request's check refuses a counter that would not fit, before anything is written.
    if (!next)
        throw std::overflow_error("AdvanceRenameCounter: the counter passed 4294967295 unchecked");
    settings.SetUserDefAutoIncStartNumber(*next);
}

} // namespace IGD
