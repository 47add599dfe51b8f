// The two transfers between the settings and a session. The session is a snapshot: nothing links
// it to the settings afterwards, except the transcode settings ReadFromDialogData shares.
#include <algorithm>
#include <memory>
#include <stdexcept>

#include "Mid/Utilities.h"
#include "Proj/PreferenceAccess.h"
#include "settings/DestinationPersistence.h"
#include "settings/IngestSettingsController.h"
#include "settings/RecentPathList.h"

namespace IGD {
namespace {

// The session's destination is always a fresh copy whose path is the head of the recent paths:
// the record's own destination may still carry a path the person browsed away from.
IngestDestinationRef SessionCopyOf(const DestinationSetting& record) {
    IngestDestinationRef copy(new IngestDestination(*record.destination));
    copy->SetDestinationPath(record.pathsMRU.empty()
                                 ? Fnd::WString()
                                 : Mid::Utilities::AddBootVolumePath(record.pathsMRU.front()));
    copy->SetEnabled(record.enabled);
    return copy;
}

} // namespace

void IngestSettingsController::ApplyToDialogData(IIngestDialogData& session) const {
    const bool vault = IsVaultMode();
    const bool hosted = IsKilnHosted();
    session.SetImportOnly(vault ? !vaultTempLocalCopy_ : importOnly_);
    const bool localTransfer = !vault && !importOnly_;
    const bool remoteCopy = vault && vaultTempLocalCopy_;

    // A hosted application lists its destinations even with transfer off and keeps the disabled
    // ones, because its plan reports each of them.
    if (localTransfer || remoteCopy || hosted) {
        for (const DestinationSetting& record : destinations_) {
            if (!record.destination)
                throw std::logic_error(
                    "IngestSettingsController: a destination record without its destination");
            record.destination->SetEnabled(record.enabled);
            if (record.enabled || hosted)
                session.AddDestination(SessionCopyOf(record));
        }
    }
    // Remote copies and a hosted import keep the session's own verify mode.
    if (localTransfer)
        session.SetVerifyMode(static_cast<std::uint32_t>(verifyOption_));

    session.SetRenameEnabled(enableRenameTemplate_);
    session.SetRenamePreset(renamePreset_);
    session.SetRenameApplyScope(renameApplyScope_);
    session.SetMetadataEnabled(enableMetadataTemplate_);
    session.SetMetadataPreset(metadataPreset_);
    session.SetMetadataApplyScope(metadataApplyScope_);
}

void IngestSettingsController::ReadFromDialogData(IIngestDialogData& session) {
    destinations_.clear();
    // A session seeded as import only still shows transfer on, with the places it carried.
    importOnly_ = false;
    verifyOption_ = static_cast<std::int32_t>(session.GetVerifyMode());
    transferSectionOpened_ = true;
    renameSectionOpened_ = true;
    metadataSectionOpened_ = true;

    const Fnd::InterfaceRef<Proj::IPreferences> preferencesRef = Proj::GetPreferences();
    Proj::IPreferences& preferences = *preferencesRef;
    const DestinationList given = session.GetDestinations();
    destinations_.reserve(given.size());
    for (std::size_t i = 0; i < given.size(); ++i) {
        const IngestDestination& source = *given[i];
        DestinationSetting record;
        record.needSubFolder = false;
        record.destination = IngestDestinationRef(new IngestDestination());
        record.destination->SetDestinationPath(source.GetDestinationPath());
        // Element 0 is the primary wherever the record came from: its copies join the project.
        record.destination->SetPrimary(i == 0);
        record.destination->SetApplyRename(session.IsRenameEnabled());
        record.destination->SetApplyMetadata(session.IsMetadataEnabled());
        record.enabled = source.IsEnabled();

        // The stored list, not a list of this run, so that the host's path joins what the person
        // chose before and SaveDestinations keeps both.
        record.pathsMRU =
            ReadRecentPathList(preferences, RecentPathListPrefix(static_cast<std::uint32_t>(i)));
        const Fnd::WString& path = source.GetDestinationPath();
        if (std::find(record.pathsMRU.begin(), record.pathsMRU.end(), path) == record.pathsMRU.end())
            record.AddPathToMRU(path);

        // Shared on purpose: the host keeps the object it handed over and sees the sections'
        // transcode choices in it.
        std::shared_ptr<QL::IngestTask::TranscodeSetting> transcode = source.GetTranscodeSetting();
        if (!transcode) {
            transcode = std::make_shared<QL::IngestTask::TranscodeSetting>();
            transcode->enabled = false;
        }
        record.destination->SetTranscodeSetting(std::move(transcode));
        destinations_.push_back(std::move(record));
    }

    // The preset is held before it is set again, so old and new are one object: the path is
    // refreshed and the custom counter goes on where it stood.
    enableRenameTemplate_ = session.IsRenameEnabled();
    renamePreset_ = session.GetRenamePreset();
    SetRenamePreset(renamePreset_);
    enableMetadataTemplate_ = session.IsMetadataEnabled();
    metadataPreset_ = session.GetMetadataPreset();
    SetMetadataPreset(metadataPreset_);
}

} // namespace IGD
