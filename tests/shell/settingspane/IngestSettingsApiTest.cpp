// What a host that embeds the settings view gets from the exports: seeding by its presets and
// session, snapshots of the settings, the template checks through boxes, and the stored places.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "IGD/IngestSettingsApi.h"
#include "Proj/Backend.h"
#include "QL/PresetService.h"
#include "settings/IngestSettingsController.h"
#include "support/CountedUnknown.h"
#include "support/PresetFields.h"
#include "support/ScriptedInteractionDriver.h"
#include "tests/settings/RecordingPreferences.h"

namespace igd::test {
using namespace IGD;
namespace {

PresetRef PresetAt(QL::_QLPresetCategory category, std::u16string_view name, std::u16string_view path,
                   const QL::PresetFieldList& fields = {}) {
    PresetRef preset = Preset(category, fields, name);
    static_cast<QL::PresetObject*>(preset.get())->SetPath(Fnd::WString(path));
    return preset;
}

// Lists the presets a test gives it; nothing is saved or deleted.
class ListedPresets final : public CountedUnknown<QL::IQLPresetManager> {
public:
    ListedPresets(QL::_QLPresetCategory category, QL::PresetList user, QL::PresetList system)
        : category_(category), user_(std::move(user)), system_(std::move(system)) {}
    QL::_QLPresetCategory GetCategory() const override { return category_; }
    PresetRef CreatePreset() override { return Preset(category_, {}); }
    QL::PresetList GetUserPresets(bool) override { return user_; }
    QL::PresetList GetSystemPresets() override { return system_; }
    QL::QLPresetStatus SavePreset(const PresetRef&, const Fnd::WString&, const Fnd::WString&, bool,
                                  const Fnd::WString&) override {
        return QL::kPresetReadOnly;
    }
    PresetRef InstallPreset(const Fnd::WString&) override { return {}; }
    QL::QLPresetStatus DeletePreset(const PresetRef&) override { return QL::kPresetReadOnly; }

private:
    QL::_QLPresetCategory category_;
    QL::PresetList user_;
    QL::PresetList system_;
};

struct ListedService final : QL::IPresetService {
    QL::PresetList renameUser, renameSystem, metadataUser;
    Fnd::InterfaceRef<QL::IQLPresetManager> InstantiateManager(QL::_QLPresetCategory category) override {
        const bool rename = category == QL::kQLPresetCategoryRename;
        return Fnd::InterfaceRef<QL::IQLPresetManager>(
            new ListedPresets(category, rename ? renameUser : metadataUser, rename ? renameSystem : QL::PresetList{}));
    }
};

class IngestSettingsApi : public ::testing::Test {
protected:
    IngestSettingsApi() {
        QL::SetPresetService(service);
        Clean();
    }
    ~IngestSettingsApi() override {
        Clean();
        QL::SetPresetService(nullptr);
    }
    // The process's settings are shared by every test of the suite.
    void Clean() {
        settings->Terminate();
        settings->ResetToDefaults();
    }
    // A host's session with the seeded presets and the destinations of these paths.
    static IngestDialogDataRef HostSession(std::initializer_list<std::u16string_view> paths) {
        IngestDialogDataRef session = IngestDialogDataRef::Query(CreateIngestDialogData());
        session->SetRenamePreset(PresetAt(QL::kQLPresetCategoryRename, u"Seeded", u"/host/Seeded.irp"));
        session->SetMetadataPreset(PresetAt(QL::kQLPresetCategoryMetadata, u"SeededMeta", u"/host/Seeded.imp"));
        for (std::u16string_view path : paths) {
            const IngestDestinationRef destination(new IngestDestination());
            destination->SetDestinationPath(Fnd::WString(path));
            destination->SetEnabled(true);
            session->AddDestination(destination);
        }
        return session;
    }

    Fnd::InterfaceRef<RecordingPreferences> preferences = RecordingPreferences::Make();
    Proj::ScopedBackend backend{preferences->Interface()};
    std::shared_ptr<ListedService> service = std::make_shared<ListedService>();
    std::shared_ptr<IngestSettingsController> settings = IngestSettingsController::GetInstance();
    IngestViewRef view{new fluxui::ui::UI_SubView()};
};

TEST_F(IngestSettingsApi, SeedingPicksOnlyAUserPresetOfExactlyThePathGiven) {
    service->renameUser = {PresetAt(QL::kQLPresetCategoryRename, u"Day", u"/user/Day.irp")};
    service->renameSystem = {PresetAt(QL::kQLPresetCategoryRename, u"Shipped", u"/system/Shipped.irp")};
    service->metadataUser = {PresetAt(QL::kQLPresetCategoryMetadata, u"Scene", u"/user/Scene.imp")};
    struct Row {
        std::u16string_view renamePath, metadataPath;
        const char* rename;
        const char* metadata;
    };
    for (const Row& row : std::vector<Row>{{u"", u"", "Seeded", "SeededMeta"},
                                           {u"/user/Day.irp", u"", "Day", "SeededMeta"},
                                           {u"/user/day.irp", u"/user/Scene.imp", "Seeded", "Scene"},
                                           {u"/system/Shipped.irp", u"/user/Nothing.imp", "Seeded", "SeededMeta"}}) {
        SCOPED_TRACE(Fnd::ToUTF8(Fnd::WString(row.renamePath)));
        IngestDialogDataRef session = HostSession({u"/host/a"});
        SetIngestSettings(session, Fnd::WString(row.renamePath), Fnd::WString(row.metadataPath));
        EXPECT_EQ(Fnd::ToUTF8(session->GetRenamePreset()->GetName(true)), row.rename);
        EXPECT_EQ(Fnd::ToUTF8(session->GetMetadataPreset()->GetName(true)), row.metadata);
        // The settings then hold what the session holds.
        EXPECT_EQ(settings->GetRenamePreset(), session->GetRenamePreset());
        EXPECT_EQ(settings->GetMetadataPreset(), session->GetMetadataPreset());
        ASSERT_EQ(settings->GetDestinations().size(), 1u);
        EXPECT_EQ(settings->GetDestinations()[0].pathsMRU, std::vector<Fnd::WString>{u"/host/a"});
    }
}

TEST_F(IngestSettingsApi, ANullPresetInTheListOrANullSessionIsTheCallersFault) {
    service->renameUser = {nullptr, PresetAt(QL::kQLPresetCategoryRename, u"Day", u"/user/Day.irp")};
    IngestDialogDataRef session = HostSession({u"/host/a"});
    EXPECT_THROW(SetIngestSettings(session, u"/user/Day.irp", u""), Fnd::NullInterfaceException);
    IngestDialogDataRef none;
    EXPECT_THROW(SetIngestSettings(none, u"", u""), Fnd::NullInterfaceException);
}

TEST_F(IngestSettingsApi, EachReadingIsANewSnapshotAndANullViewGivesDefaults) {
    IngestDialogDataRef seeded = HostSession({u"/host/a", u"/host/b"});
    seeded->SetVerifyMode(2);
    SetIngestSettings(seeded, u"", u"");

    const IngestDialogDataRef first = GetIngestSettings(view);
    EXPECT_NE(first, seeded);
    EXPECT_FALSE(first->IsImportOnly());
    ASSERT_EQ(first->GetDestinations().size(), 2u);
    EXPECT_EQ(first->GetDestinations()[1]->GetDestinationPath(), u"/host/b");
    EXPECT_EQ(first->GetVerifyMode(), 2u);
    EXPECT_EQ(first->GetRenamePreset(), seeded->GetRenamePreset());

    settings->SetDestinationEnabled(1, false);
    EXPECT_EQ(GetIngestSettings(view)->GetDestinations().size(), 1u);
    EXPECT_EQ(first->GetDestinations().size(), 2u);

    const IngestDialogDataRef defaults = GetIngestSettings(nullptr);
    EXPECT_TRUE(defaults->IsImportOnly());
    EXPECT_TRUE(defaults->GetDestinations().empty());
    EXPECT_EQ(defaults->GetVerifyMode(), kVerifyModeNone);
    EXPECT_EQ(defaults->GetRenamePreset(), nullptr);
}

TEST_F(IngestSettingsApi, StoringKeepsOnlyThePlacesAndCountsNoDestinationsAsAllBits) {
    const std::string count = K("Local.Backup.Count");
    SavePersistedData();
    EXPECT_EQ(preferences->values.at(count), Proj::PreferenceData(std::uint32_t{0xFFFFFFFF}));

    IngestDialogDataRef seeded = HostSession({u"/host/a", u"/host/b"});
    SetIngestSettings(seeded, u"", u"");
    preferences->calls.clear();
    SavePersistedData();
    EXPECT_EQ(preferences->values.at(count), Proj::PreferenceData(std::uint32_t{1}));
    EXPECT_EQ(preferences->values.at(K("Local.Backup.DestPathMRU1") + K("PathsMRUItem0")),
              Proj::PreferenceData("/host/b"));
    for (const std::string& key : preferences->KeysOf(RecordingPreferences::Op::kSet)) {
        EXPECT_EQ(key.find("SectionOpened"), std::string::npos) << key;
        EXPECT_EQ(key.find("Template"), std::string::npos) << key;
        EXPECT_EQ(key.find("PresetPath"), std::string::npos) << key;
    }
}

TEST_F(IngestSettingsApi, TheChecksRefuseThroughOneBoxEachRenameFirst) {
    ScopedInteractionDriver ui;
    EXPECT_TRUE(CheckIngestSettings(nullptr));
    EXPECT_TRUE(CheckIngestSettings(view));
    EXPECT_TRUE(ui->Boxes().empty());

    // An empty rename template asks; a metadata template with a required field left empty stops.
    settings->SetEnableRenameTemplate(true);
    settings->SetEnableMetadataTemplate(true);
    settings->SetMetadataPreset(PresetAt(QL::kQLPresetCategoryMetadata, u"Scene", u"/user/Scene.imp",
                                         {Field(QL::kQLFieldMetadata, u"", u"scene", true)}));
    struct Row {
        int renameAnswer;
        std::size_t boxes;
    };
    for (const Row& row : {Row{1, 1}, Row{0, 2}}) {
        const std::size_t before = ui->Boxes().size();
        ui->QueueBoxAnswer(row.renameAnswer);
        if (row.boxes == 2)
            ui->QueueBoxAnswer(0);
        EXPECT_FALSE(CheckIngestSettings(view));
        EXPECT_EQ(ui->Boxes().size() - before, row.boxes);
    }
    EXPECT_NE(Fnd::ToUTF8(ui->Boxes().back().text).find("scene"), std::string::npos);
}

} // namespace
} // namespace igd::test
