#include "Fnd/StationUtils.h"
#include "IGD/IngestApi.h"
#include "QL/IngestMessages.h"
#include "pipeline/plan/IngestPlan.h"
#include "pipeline/gathering/PrepareSessionForFile.h"

namespace IGD {

fluxcore::utility::Guid DoIngestOneMedia(const Fnd::WString& path, IngestDialogDataRef session,
                                         const Fnd::Date date, bool directFile) {
    // A session the caller prepared already (or used before) keeps its items: nothing is gathered
    // again, and the same items go out again under the new batch.
    if (session->GetSelectedItems().empty())
        PrepareSessionForFile(path, *session, date, !directFile, false);
    const fluxcore::utility::Guid batch = fluxcore::utility::Guid::CreateUnique();
    if (session->GetSelectedItems().empty())
        return batch;
    RunIngestPlan(session, batch);
    Fnd::StationUtils::PostMessageToUIThread(QL::kStation_IngestMedia, QL::StartIngestMessage(batch, {}),
                                             false);
    return batch;
}

} // namespace IGD
