// What a host that embeds the settings view gets from the exports: seeding by its presets and
// session, snapshots of the settings, the template checks through boxes, and the stored places.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "IGD/IngestSettingsApi.h"
#include "Proj/Backend.h"
#include "QL/FilePresetService.h"
#include "settings/IngestSettingsController.h"
#include "support/PresetFields.h"
#include "support/ScriptedInteractionDriver.h"
#include "support/TempTree.h"
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

// The path of a new user preset of that name, saved through the installed service.
Fnd::WString SavedUserPreset(QL::_QLPresetCategory category, const Fnd::WString& name) {
    const auto manager = QL::InstantiateQLPresetManager(category);
    const bool rename = category == QL::kQLPresetCategoryRename;
    const PresetRef preset = Preset(
        category, {Field(rename ? QL::kQLFieldCustomText : QL::kQLFieldMetadata, u"x", u"scene")}, name);
    EXPECT_EQ(manager->SavePreset(preset, name, u"", false, name), QL::kPresetOK);
    return preset->GetPath();
}

class IngestSettingsApi : public ::testing::Test {
protected:
    IngestSettingsApi() {
        QL::SetPresetService(std::make_shared<QL::FilePresetService>(
            QL::PresetFolders{presets.NativePath(), QL::DefaultPresetFolders().systemRoot}));
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
        session->SetMetadataPreset(
            PresetAt(QL::kQLPresetCategoryMetadata, u"SeededMeta", u"/host/Seeded.imp"));
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
    TempTree presets;
    std::shared_ptr<IngestSettingsController> settings = IngestSettingsController::GetInstance();
    IngestViewRef view{new fluxui::ui::UI_SubView()};
};

TEST_F(IngestSettingsApi, SeedingPicksOnlyAUserPresetOfExactlyThePathGiven) {
    const Fnd::WString day = SavedUserPreset(QL::kQLPresetCategoryRename, u"Day");
    const Fnd::WString scene = SavedUserPreset(QL::kQLPresetCategoryMetadata, u"Scene");
    const auto shipped = QL::InstantiateQLPresetManager(QL::kQLPresetCategoryRename)->GetSystemPresets();
    ASSERT_FALSE(shipped.empty());
    Fnd::WString otherCase = day;
    otherCase.replace(otherCase.rfind(u"Day"), 3, u"day");
    struct Row {
        Fnd::WString renamePath, metadataPath;
        const char* rename;
        const char* metadata;
    };
    for (const Row& row : std::vector<Row>{{u"", u"", "Seeded", "SeededMeta"},
                                           {day, u"", "Day", "SeededMeta"},
                                           {otherCase, scene, "Seeded", "Scene"},
                                           {shipped[0]->GetPath(), day, "Seeded", "SeededMeta"}}) {
        SCOPED_TRACE(Fnd::ToUTF8(row.renamePath));
        IngestDialogDataRef session = HostSession({u"/host/a"});
        SetIngestSettings(session, row.renamePath, row.metadataPath);
        EXPECT_EQ(Fnd::ToUTF8(session->GetRenamePreset()->GetName(true)), row.rename);
        EXPECT_EQ(Fnd::ToUTF8(session->GetMetadataPreset()->GetName(true)), row.metadata);
        // The settings then hold what the session holds.
        EXPECT_EQ(settings->GetRenamePreset(), session->GetRenamePreset());
        ASSERT_EQ(settings->GetDestinations().size(), 1u);
        EXPECT_EQ(settings->GetDestinations()[0].pathsMRU, std::vector<Fnd::WString>{u"/host/a"});
    }
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
    SavePersistedData();
    EXPECT_EQ(preferences->values.at(count), Proj::PreferenceData(std::uint32_t{1}));
    EXPECT_EQ(preferences->values.at(K("Local.Backup.DestPathMRU1") + K("PathsMRUItem0")),
              Proj::PreferenceData("/host/b"));
    EXPECT_EQ(preferences->values.count(K("TransferSectionOpened")), 0u) << "only the places are stored";
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
