#include "host/HostKind.h"

#include "AppFrame/DocumentManager.h"
#include "HostApp/ApplicationType.h"

namespace IGD {

bool IsKilnHosted() {
    const int kind = HostApp::GetApplicationType();
    return kind == 5 || kind == 8;
}

bool IsVaultMode() {
    const AppFrame::DocumentManager* manager = AppFrame::DocumentManager::Instance();
    return manager != nullptr && manager->IsVaultMode();
}

} // namespace IGD
