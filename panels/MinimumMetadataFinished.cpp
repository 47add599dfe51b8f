#include "panels/MinimumMetadataFinished.h"

#include "Fnd/StationUtils.h"
#include "QL/IngestMessages.h"

namespace IGD {

void PostMinimumMetadataFinished(bool success, const QL::MinimumMetadataResult& result) {
    Fnd::StationUtils::PostMessageToUIThread(QL::kStation_IngestMedia, QL::MiniMetadataFinishedMessage(success, result),
                                             true);
}

} // namespace IGD
