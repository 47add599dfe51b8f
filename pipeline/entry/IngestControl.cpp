// Control of the running batch. The service keeps the state; these only ask.
#include "Fnd/StationUtils.h"
#include "IGD/IngestApi.h"
#include "QL/IngestMessages.h"

namespace IGD {

void PauseIngest() {
    Fnd::StationUtils::PostMessageToUIThread(QL::kStation_IngestMedia, QL::PauseIngestMessage(), false);
}

void ResumeIngest() {
    Fnd::StationUtils::PostMessageToUIThread(QL::kStation_IngestMedia, QL::ResumeIngestMessage(), false);
}

void StopIngest() {
    Fnd::StationUtils::PostMessageToUIThread(QL::kStation_IngestMedia, QL::CancelIngestMessage(), false);
}

} // namespace IGD
