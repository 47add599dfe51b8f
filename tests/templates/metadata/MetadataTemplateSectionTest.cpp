// The "File Metadata" section as a user works it: values typed for one ingest, and keys and names
// edited until a save accepts them.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "IGD/LayoutPreview.h"
#include "QL/FilePresetService.h"
#include "QL/PresetFileReader.h"
#include "fluxui/dialogs/SimpleInputBox.h"
#include "support/ScopedIgdHome.h"
#include "support/ScriptedInteractionDriver.h"
#include "templates/metadata/MetadataTemplateAddFieldSection.h"
#include "templates/metadata/MetadataTemplateEditModeField.h"
#include "templates/metadata/MetadataTemplateEditModeFieldsContainer.h"
#include "templates/metadata/MetadataTemplateNormalModeField.h"
#include "templates/metadata/MetadataTemplateNormalModeFieldsContainer.h"
#include "templates/metadata/MetadataTemplateSection.h"
#include "templates/section/PresetManagementNormalModeHeader.h"
#include "transfer/SectionTree.h"

namespace igd::test {
namespace {

using namespace IGD;

class MetadataTemplateSectionTest : public ::testing::Test {
protected:
    // A disabled section takes no clicks.
    MetadataTemplateSectionTest() { settings->SetEnableMetadataTemplate(true); }
    ~MetadataTemplateSectionTest() override { QL::SetPresetService(nullptr); }

    // The section, with the user preset Crew (a required "scene" defaulting to "12") as first
    // written and chosen; a fresh service reads it again.
    void OpenOnCrew() {
        crewPath = home.MakeFile("presets/metadata/Crew.igdmetadata",
                                 "<?xml version=\"1.0\"?><preset category=\"metadata\" schema=\"igd.preset\" "
                                 "version=\"1\"><name>Crew</name><field type=\"metadata\" required=\"true\">"
                                 "<key>scene</key><format>12</format></field></preset>");
        QL::InstallFilePresetService();
        section = new MetadataTemplateSection(settings);
        wrangler::ui::BuildSectionTree(*section, *IngestResourceManager(), nullptr);
        wrangler::ui::ApplySettingsToTree(*section);
        Choose(u"Crew");
    }
    void Choose(const std::u16string& presetName) {
        auto& popup = section->GetNormalHeader().GetPresetPopup();
        for (std::size_t row = 0; row < popup.GetItems().size(); ++row)
            if (popup.GetItems()[row].text == presetName)
                return popup.ChooseByUser(static_cast<int>(row));
        FAIL() << "no preset " << Fnd::ToUTF8(presetName);
    }
    void Menu(int row) { section->GetNormalHeader().GetMenuPopup().ChooseByUser(row); }
    template <typename Row, typename Container> static std::vector<Row*> Rows(const Container& container) {
        std::vector<Row*> rows;
        for (auto* row : container.GetRows())
            rows.push_back(dynamic_cast<Row*>(row));
        return rows;
    }
    MetadataTemplateEditModeField& AddRow(const std::u16string& key) {
        dynamic_cast<MetadataTemplateAddFieldSection&>(section->GetAddField()).GetAddButton().Press();
        auto& row = *Rows<MetadataTemplateEditModeField>(section->GetEditFields()).back();
        row.GetKeyEdit().TypeText(key);
        return row;
    }
    std::vector<QL::PresetFieldRecord> SavedCrew() const {
        return QL::ReadPresetFile(crewPath).document->fields;
    }

    ScopedIgdHome home;
    std::string crewPath;
    std::shared_ptr<IngestSettingsController> settings = std::make_shared<IngestSettingsController>();
    boost::intrusive_ptr<MetadataTemplateSection> section;
};

TEST_F(MetadataTemplateSectionTest, RowsMarkRequiredKeysAndClearTextFieldsEmptiesWhatTheyShow) {
    settings->SetMetadataSectionOpened(false);
    OpenOnCrew();
    EXPECT_FALSE(section->GetOpened());
    section->SetOpened(true);
    EXPECT_TRUE(settings->GetMetadataSectionOpened());

    Choose(u"Production");
    const auto rows = Rows<MetadataTemplateNormalModeField>(section->GetNormalFields());
    std::vector<std::u16string> labels;
    for (const auto* row : rows)
        labels.push_back(row->GetLabel().GetValue());
    EXPECT_EQ(labels, (std::vector<std::u16string>{u"production", u"director", u"cameraOperator", u"scene *",
                                                   u"take *"}));
    rows[3]->GetValueEdit().TypeText(u"42");
    EXPECT_EQ(settings->GetMetadataPreset()->GetFields()[3]->GetValue(), u"42");
    Menu(kMenuClearTextFields);
    EXPECT_EQ(rows[3]->GetValueEdit().GetValue(), u"");
}

TEST_F(MetadataTemplateSectionTest, SaveChecksKeysAfterTrimmingAndKeepsThemAsTyped) {
    const struct {
        std::vector<std::u16string> typed; // keys of rows added after "scene"
        std::u16string box;                // the stop box's text; empty when the save goes through
        std::vector<std::u16string> saved;
    } cases[] = {
        {{u"  "}, {}, {u"scene"}}, // a row without a key is dropped without a word
        {{u" scene"}, u"Metadata preset may not contain multiple fields with the same name.", {u"scene"}},
        {{u"Scene", u"take "}, {}, {u"scene", u"Scene", u"take "}},
        {{u"2nd unit"}, u"The first character of the field name cannot be a number.", {u"scene"}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(Fnd::ToUTF8(each.typed.front()));
        ScopedInteractionDriver ui;
        OpenOnCrew();
        Menu(kMenuEditPreset);
        for (const std::u16string& key : each.typed)
            AddRow(key).GetValueEdit().TypeText(u"value");
        if (!each.box.empty())
            ui->QueueBoxAnswer(0);
        section->GetAddField().GetSaveButton().Press();

        std::vector<std::u16string> saved;
        for (const auto& field : SavedCrew())
            saved.push_back(field.key);
        EXPECT_EQ(saved, each.saved);
        EXPECT_EQ(section->IsEditing(), !each.box.empty()) << "a refused save stays in edit mode";
        ASSERT_EQ(ui->Boxes().size(), each.box.empty() ? 0u : 1u);
        if (!each.box.empty()) {
            EXPECT_EQ(ui->Boxes()[0].text, each.box);
        }
    }
}

TEST_F(MetadataTemplateSectionTest, EditRowsSetRequiredKeyAndDefault) {
    OpenOnCrew();
    Menu(kMenuEditPreset);
    auto& scene = *Rows<MetadataTemplateEditModeField>(section->GetEditFields()).at(0);
    EXPECT_TRUE(scene.GetRequiredCheckBox().IsChecked());
    EXPECT_EQ(scene.GetValueEdit().GetValue(), u"12");
    scene.GetRequiredCheckBox().Press();
    scene.GetValueEdit().TypeText(u"7");
    AddRow(u"take").GetRequiredCheckBox().Press();
    section->GetAddField().GetSaveButton().Press();
    EXPECT_EQ(SavedCrew(), (std::vector<QL::PresetFieldRecord>{{QL::kQLFieldMetadata, u"scene", u"7", false},
                                                               {QL::kQLFieldMetadata, u"take", u"", true}}));
}

TEST_F(MetadataTemplateSectionTest, SaveAsRefusesANameThatIsNoFileNameFirstThenOneWithABlank) {
    ScopedInteractionDriver ui;
    OpenOnCrew();
    for (const std::u16string name : {u"Crew:A", u"Crew A", u"Crew_A"})
        ui->QueueModal([name](Fnd::IModalSession& session) {
            auto& prompt = dynamic_cast<fluxui::dialogs::SimpleInputBox&>(session);
            prompt.GetTextEdit().TypeText(name);
            prompt.GetOKButton().Press();
        });
    ui->QueueBoxAnswer(0);
    ui->QueueBoxAnswer(0);
    Menu(kMenuSaveAsPreset);
    ASSERT_EQ(ui->Boxes().size(), 2u);
    EXPECT_EQ(ui->Boxes()[0].title, u"Invalid Preset Name");
    EXPECT_EQ(ui->Boxes()[1].title, u"Invalid Metadata Preset Name");
    EXPECT_TRUE(std::filesystem::exists(home.Path() + "/presets/metadata/Crew_A.igdmetadata"));
}

} // namespace
} // namespace igd::test
