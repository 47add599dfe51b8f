#include "IGD/IngestDialogApi.h"
#include "shell/resources/IngestResources.h"

namespace IGD {

void ReleaseIngestResHandlers() {
    IngestResources::Release();
}

} // namespace IGD
