#include "IngestSubmission.h"

#include <memory>

#include "Fnd/NullInterfaceException.h"
#include "Fnd/StationUtils.h"
#include "QL/IngestMessages.h"
#include "QL/TranscodeSetting.h"
#include "pipeline/IngestPlan.h"
#include "pipeline/IngestRequest.h"
#include "pipeline/RenameCounter.h"
#include "settings/IngestSettingsController.h"
#include "settings/PreferenceAccess.h"

namespace igd {
namespace {

// The counter is the one setting an ingest from the command line leaves behind: the next ingest,
// here or in the dialog, must not hand out the same numbers again.
void StoreStartNumber() {
    const IGD::IngestSettingsController& settings = *IGD::IngestSettingsController::GetInstance();
    if (settings.GetSettingsLocked())
        return;
    try {
        IGD::WritePreference(*IGD::GetPreferences(), IGD::kUserDefAutoIncStartNumber,
                             settings.GetUserDefAutoIncStartNumber());
    } catch (const Fnd::NullInterfaceException&) {
        // Without a preference store there is nothing to carry over to.
    }
}

} // namespace

void ApplyIngestChoices(IGD::IIngestDialogData& session, const IngestChoices& choices) {
    session.SetImportOnly(choices.destinations.empty());
    for (std::size_t i = 0; i < choices.destinations.size(); ++i) {
        IGD::IngestDestinationRef destination(new IGD::IngestDestination);
        destination->SetDestinationPath(choices.destinations[i]);
        destination->SetSubFolder(choices.subFolder);
        destination->SetPrimary(i == 0);
        destination->SetEnabled(true);
        // Nothing is transcoded from here: every destination is a copy.
        destination->SetTranscodeSetting(std::make_shared<QL::IngestTask::TranscodeSetting>());
        session.AddDestination(destination);
    }
    if (!choices.destinations.empty())
        session.SetVerifyMode(choices.verifyMode);
    session.SetRenameEnabled(choices.renamePreset != nullptr);
    session.SetRenamePreset(choices.renamePreset);
    session.SetRenameApplyScope(choices.renameScope);
    session.SetMetadataEnabled(choices.metadataPreset != nullptr);
    session.SetMetadataPreset(choices.metadataPreset);
    session.SetMetadataApplyScope(choices.metadataScope);
}

bool PrepareIngestSessions(const std::vector<IGD::IngestDialogDataRef>& sessions) {
    const Fnd::Date now = Fnd::Date::Now();
    std::uint32_t firstCounter = 1;
    for (const IGD::IngestDialogDataRef& session : sessions) {
        if (!IGD::CheckIngestRequest(*session, nullptr, now, firstCounter))
            return false;
        firstCounter += static_cast<std::uint32_t>(session->GetSelectedItems().size());
    }
    // No panel asks for minimum metadata here: the templates are all the metadata there is.
    for (const IGD::IngestDialogDataRef& session : sessions)
        if (!IGD::CompleteIngestRequest(*session, QL::MinimumMetadataResult{}))
            return false;
    return true;
}

void SubmitIngestSessions(const std::vector<IGD::IngestDialogDataRef>& sessions,
                          const fluxcore::utility::Guid& batch) {
    for (const IGD::IngestDialogDataRef& session : sessions) {
        IGD::RunIngestPlan(session, batch);
        IGD::AdvanceRenameCounter(*session);
    }
    if (!sessions.empty() && sessions.front()->IsRenameEnabled())
        StoreStartNumber();
    Fnd::StationUtils::PostMessageToUIThread(QL::kStation_IngestMedia, QL::StartIngestMessage(batch, {}),
                                             false);
}

} // namespace igd
