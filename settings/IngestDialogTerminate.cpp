#include "IGD/IngestDialogApi.h"
#include "settings/IngestSettingsController.h"

namespace IGD {

void IngestDialogTerminate() {
    IngestSettingsController::GetInstance()->Terminate();
}

} // namespace IGD
