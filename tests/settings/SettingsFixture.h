#pragma once
// A controller over a recording preference store, with the host kind, the remote-project state
// and the site's configuration under the test's control, and the read-only warnings counted.
#include <gtest/gtest.h>

#include "AppFrame/DocumentManager.h"
#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "HostApp/ApplicationType.h"
#include "Proj/Backend.h"
#include "Proj/PreferenceMessages.h"
#include "QL/PresetObject.h"
#include "settings/IngestSettingsController.h"
#include "tests/settings/RecordingPreferences.h"

namespace igd::test {
using namespace IGD;

using Keys = std::vector<std::string>;

class SettingsFixture : public ::testing::Test, private Fnd::Listener {
protected:
    SettingsFixture() { Fnd::StationUtils::AddListener(preferences->GetStationID(), this); }
    ~SettingsFixture() override {
        Fnd::GetDefaultQueue().Drain();
        Fnd::StationUtils::RemoveListener(preferences->GetStationID(), this);
        HostApp::SetApplicationType(0);
        AppFrame::DocumentManager::SetInstance(nullptr);
    }

    static void UseRemoteProject() {
        AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(true));
    }
    void Put(std::string_view shortKey, Proj::PreferenceData data) {
        preferences->values[K(shortKey)] = data;
    }
    std::optional<Proj::PreferenceData> Stored(const std::string& key) const {
        const auto found = preferences->values.find(key);
        return found == preferences->values.end() ? std::nullopt : std::optional(found->second);
    }
    // Delivers what was posted and answers how many read-only warnings arrived.
    int DeliveredWarnings() {
        Fnd::GetDefaultQueue().Drain();
        return warnings_;
    }

    Fnd::InterfaceRef<RecordingPreferences> preferences = RecordingPreferences::Make();
    Proj::ScopedBackend backend{preferences->Interface()};
    QL::IngestUtils::IngestSettings site;
    IngestSettingsController controller{[this] { return site; }};

private:
    void ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) override {
        warnings_ += Fnd::MessageCast<Proj::OverrideReadOnlyPropertyWarningMessage>(message) != nullptr;
    }
    int warnings_ = 0;
};

inline std::string BackupList(int index, std::string_view part) {
    return K("Local.Backup.DestPathMRU") + std::to_string(index) + K(part);
}

// A preset known by its name and path.
inline PresetRef NamedPreset(const Fnd::WString& name, const Fnd::WString& path) {
    auto preset = QL::PresetObject::Create(QL::kQLPresetCategoryRename, name);
    preset->SetPath(path);
    return PresetRef(preset.get());
}

} // namespace igd::test
