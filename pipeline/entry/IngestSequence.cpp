#include "IGD/IngestSequence.h"

#include <memory>

#include "Fnd/NullInterfaceException.h"
#include "Mid/PresetManager.h"
#include "Fnd/StationUtils.h"
#include "QL/ChecksumVerifyMode.h"
#include "QL/IngestMessages.h"
#include "QL/TranscodeSetting.h"
#include "pipeline/entry/ResolvedDestination.h"
#include "pipeline/entry/IngestRequest.h"
#include "pipeline/entry/AdvanceRenameCounter.h"
#include "pipeline/plan/IngestPlan.h"
#include "pipeline/plan/TargetsOfIngest.h"
#include "settings/IngestSettingsController.h"
#include "Proj/PreferenceAccess.h"
#include "settings/SettingKeys.h"
#include "settings/StoredPresets.h"

namespace IGD {
namespace {

// Without a preference store the defaults stand, as they do in a dialog of a host without one.
void LoadStoredSettings(IngestSettingsController& settings) {
    try {
        settings.LoadSettings();
    } catch (const Fnd::NullInterfaceException&) {
    }
}

// The counter is the one setting a host's ingest leaves behind: the next ingest, there or in the
// dialog, must not hand out the same numbers again.
void StoreStartNumber() {
    const IngestSettingsController& settings = *IngestSettingsController::GetInstance();
    if (settings.GetSettingsLocked())
        return;
    try {
        WritePreference(*Proj::GetPreferences(), kUserDefAutoIncStartNumber, settings.GetUserDefAutoIncStartNumber());
    } catch (const Fnd::NullInterfaceException&) {
        // Without a preference store there is nothing to carry over to.
    }
}

// The setting a transcoding destination holds, with the exporter and preset the encoder list
// knows by those names; either left null when the list has none, so that the task names what is
// missing.
std::shared_ptr<QL::IngestTask::TranscodeSetting> TranscodeSettingFor(const IngestChoices& choices, std::size_t index) {
    auto setting = std::make_shared<QL::IngestTask::TranscodeSetting>();
    if (index >= choices.transcodes.size() || !choices.transcodes[index])
        return setting;
    const DestinationTranscode& transcode = *choices.transcodes[index];
    setting->enabled = true;
    setting->exporterName = transcode.exporterName;
    setting->presetName = transcode.presetName;
    Mid::PresetManager& encoders = Mid::PresetManager::GetInstance();
    for (const Mid::ExporterRef& exporter : encoders.GetEncoderList()) {
        if (!exporter || exporter->GetDisplayName() != transcode.exporterName)
            continue;
        setting->exporter = exporter;
        std::vector<Mid::EncoderPresetRef> user;
        std::vector<Mid::EncoderPresetRef> system;
        encoders.LoadPresets(exporter, user, system, 0);
        for (const auto* presets : {&system, &user})
            for (const Mid::EncoderPresetRef& preset : *presets)
                if (!setting->preset && preset && preset->GetName() == transcode.presetName)
                    setting->preset = preset;
    }
    if (index == 0 && !choices.stitchName.empty()) {
        setting->concatenate = true;
        setting->concatenateName = choices.stitchName;
    }
    return setting;
}

void ApplyToSession(IIngestDialogData& session, const IngestChoices& choices) {
    session.SetImportOnly(choices.destinations.empty());
    for (std::size_t i = 0; i < choices.destinations.size(); ++i) {
        IngestDestinationRef destination(new IngestDestination);
        destination->SetDestinationPath(ResolvedDestination(choices.destinations[i]));
        destination->SetSubFolder(choices.subFolder);
        destination->SetPrimary(i == 0);
        destination->SetEnabled(true);
        destination->SetTranscodeSetting(TranscodeSettingFor(choices, i));
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

} // namespace

void ApplyIngestChoices(const std::vector<IngestDialogDataRef>& sessions, const IngestChoices& choices) {
    // The template checks read the settings as the dialog's sections left them; here the choices
    // are the settings pane. The stored start number stands unless one is given.
    IngestSettingsController& settings = *IngestSettingsController::GetInstance();
    LoadStoredSettings(settings);
    settings.SetEnableRenameTemplate(choices.renamePreset != nullptr);
    settings.SetEnableMetadataTemplate(choices.metadataPreset != nullptr);
    settings.SetRenameEditMode(false);
    settings.SetMetadataEditMode(false);
    if (choices.startNumber)
        settings.SetUserDefAutoIncStartNumber(*choices.startNumber);
    for (const IngestDialogDataRef& session : sessions)
        ApplyToSession(*session, choices);
}

std::uint32_t StoredChecksumVerifyMode() {
    IngestSettingsController& settings = *IngestSettingsController::GetInstance();
    LoadStoredSettings(settings);
    return QL::IngestTask::ChecksumVerifyMode(settings.GetVerifyChecksum());
}

PresetRef StoredRenameTemplate() {
    IngestSettingsController& settings = *IngestSettingsController::GetInstance();
    LoadStoredSettings(settings);
    if (!settings.GetEnableRenameTemplate())
        return {};
    // The settings keep the path of the preset; the dialog's section finds the preset from it, and
    // so must a host without the dialog.
    return FindPresetAtPath(QL::kQLPresetCategoryRename, settings.GetRenamePresetPath());
}

bool CheckIngestSessions(const std::vector<IngestDialogDataRef>& sessions, Fnd::Date now) {
    const std::uint32_t startNumber = IngestSettingsController::GetInstance()->GetUserDefAutoIncStartNumber();
    std::uint32_t firstCounter = 1;
    for (const IngestDialogDataRef& session : sessions) {
        if (!CheckIngestRequest(*session, nullptr, now, firstCounter, startNumber))
            return false;
        firstCounter += static_cast<std::uint32_t>(session->GetSelectedItems().size());
    }
    return true;
}

bool CompleteIngestSessions(const std::vector<IngestDialogDataRef>& sessions,
                            const QL::MinimumMetadataResult& minimumMetadata) {
    {
        // Files of different sessions may meet at one target too.
        const TargetsOfIngest targets;
        for (const IngestDialogDataRef& session : sessions)
            if (!CompleteIngestRequest(*session, minimumMetadata))
                return false;
    }
    for (const IngestDialogDataRef& session : sessions)
        AdvanceRenameCounter(*session);
    if (!sessions.empty() && sessions.front()->IsRenameEnabled())
        StoreStartNumber();
    return true;
}

void StartIngestSessions(const std::vector<IngestDialogDataRef>& sessions,
                         const fluxcore::utility::Guid& batch) {
    for (const IngestDialogDataRef& session : sessions)
        RunIngestPlan(session, batch);
    Fnd::StationUtils::PostMessageToUIThread(QL::kStation_IngestMedia, QL::StartIngestMessage(batch, {}),
                                             false);
}

} // namespace IGD
