// The "File Metadata" section as a user works it: choosing a preset, typing values, and editing
// keys until a save accepts them.
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
#include "templates/metadata/MetadataTemplateNormalModeField.h"
#include "templates/metadata/MetadataTemplateSection.h"
#include "templates/fields/PresetManagementEditModeFieldsContainer.h"
#include "templates/fields/PresetManagementNormalModeFieldsContainer.h"
#include "templates/section/PresetManagementNormalModeHeader.h"
#include "transfer/SectionTree.h"

namespace igd::test {
namespace {

using IGD::MetadataTemplateEditModeField;
using IGD::MetadataTemplateNormalModeField;

template <typename Row, typename Container> std::vector<Row*> Rows(const Container& container) {
    std::vector<Row*> rows;
    for (auto* row : container.GetRows())
        rows.push_back(dynamic_cast<Row*>(row));
    return rows;
}

class MetadataTemplateSectionTest : public ::testing::Test {
protected:
    MetadataTemplateSectionTest() {
        ResetCrew();
        // A disabled section takes no clicks.
        settings->SetEnableMetadataTemplate(true);
    }
    // The user preset Crew as first written, with a fresh service that has not seen it yet.
    void ResetCrew() {
        crewPath = home.MakeFile("presets/metadata/Crew.igdmetadata",
                                 "<?xml version=\"1.0\"?><preset category=\"metadata\" schema=\"igd.preset\" "
                                 "version=\"1\"><name>Crew</name><field type=\"metadata\" required=\"true\">"
                                 "<key>scene</key><format>12</format></field></preset>");
        QL::InstallFilePresetService();
    }
    ~MetadataTemplateSectionTest() override { QL::SetPresetService(nullptr); }

    IGD::MetadataTemplateSection& Built() {
        section = new IGD::MetadataTemplateSection(settings);
        wrangler::ui::BuildSectionTree(*section, *IGD::IngestResourceManager(), nullptr);
        wrangler::ui::ApplySettingsToTree(*section);
        return *section;
    }
    void Choose(const std::u16string& presetName) {
        auto& popup = section->GetNormalHeader().GetPresetPopup();
        const auto& items = popup.GetItems();
        for (int row = 0; row < static_cast<int>(items.size()); ++row)
            if (items[row].text == presetName)
                return popup.ChooseByUser(row);
        FAIL() << "no preset " << Fnd::ToUTF8(presetName) << " in the popup";
    }
    void Menu(int row) { section->GetNormalHeader().GetMenuPopup().ChooseByUser(row); }
    std::vector<std::u16string> SavedCrewKeys() const {
        std::vector<std::u16string> keys;
        const QL::PresetReadResult read = QL::ReadPresetFile(crewPath);
        for (const auto& field : read.document->fields)
            keys.push_back(field.key);
        return keys;
    }

    ScopedIgdHome home;
    std::string crewPath;
    std::shared_ptr<IGD::IngestSettingsController> settings = std::make_shared<IGD::IngestSettingsController>();
    boost::intrusive_ptr<IGD::MetadataTemplateSection> section;
};

TEST_F(MetadataTemplateSectionTest, RowsMarkRequiredKeysAndClearTextFieldsEmptiesWhatTheyShow) {
    settings->SetMetadataSectionOpened(false);
    Built();
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
    rows[4]->GetValueEdit().TypeText(u"3");
    EXPECT_EQ(settings->GetMetadataPreset()->GetFields()[3]->GetValue(), u"42");
    Menu(IGD::kMenuClearTextFields);
    for (const auto* row : rows) {
        EXPECT_EQ(row->GetValueEdit().GetValue(), u"");
        EXPECT_EQ(row->GetField()->GetValue(), u"");
    }
}

// Keys are typed into the rows of the Crew preset (whose first row has "scene") and Save pressed.
TEST_F(MetadataTemplateSectionTest, SaveChecksKeysAfterTrimmingAndKeepsThemAsTyped) {
    const struct {
        std::vector<std::u16string> typed; // keys of the rows added after "scene"
        std::u16string box;                // the stop box's text; empty when the save goes through
        std::vector<std::u16string> saved;
    } cases[] = {
        {{u"  "}, {}, {u"scene"}}, // a row without a key is dropped without a word
        {{u" scene"}, u"Metadata preset may not contain multiple fields with the same name.", {u"scene"}},
        {{u"Scene", u"take "}, {}, {u"scene", u"Scene", u"take "}},
        {{u"2nd unit"}, u"The first character of the field name cannot be a number.", {u"scene"}},
        {{u"camera operator"}, u"Field names contain invalid character.", {u"scene"}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(Fnd::ToUTF8(each.typed.front()));
        ScopedInteractionDriver ui;
        ResetCrew();
        Built();
        Choose(u"Crew");
        Menu(IGD::kMenuEditPreset);
        auto& addField = dynamic_cast<IGD::MetadataTemplateAddFieldSection&>(section->GetAddField());
        for (const std::u16string& key : each.typed) {
            addField.GetAddButton().Press();
            auto* added = Rows<MetadataTemplateEditModeField>(section->GetEditFields()).back();
            added->GetKeyEdit().TypeText(key);
            added->GetValueEdit().TypeText(u"value");
        }
        if (!each.box.empty())
            ui->QueueBoxAnswer(0);
        addField.GetSaveButton().Press();

        EXPECT_EQ(SavedCrewKeys(), each.saved);
        EXPECT_EQ(section->IsEditing(), !each.box.empty());
        if (each.box.empty())
            continue;
        ASSERT_EQ(ui->Boxes().size(), 1u);
        EXPECT_EQ(ui->Boxes()[0].text, each.box);
        EXPECT_EQ(Rows<MetadataTemplateEditModeField>(section->GetEditFields()).back()->GetKeyEdit().GetValue(),
                  each.typed.back())
            << "the user's text stays in the row";
    }
}

TEST_F(MetadataTemplateSectionTest, EditRowsChangeRequiredKeyAndDefaultOfTheSavedFields) {
    Built();
    Choose(u"Crew");
    Menu(IGD::kMenuEditPreset);
    const auto rows = Rows<MetadataTemplateEditModeField>(section->GetEditFields());
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_TRUE(rows[0]->GetRequiredCheckBox().IsChecked());
    EXPECT_EQ(rows[0]->GetValueEdit().GetValue(), u"12");
    rows[0]->GetRequiredCheckBox().Press();
    rows[0]->GetValueEdit().TypeText(u"7");
    dynamic_cast<IGD::MetadataTemplateAddFieldSection&>(section->GetAddField()).GetAddButton().Press();
    auto* added = Rows<MetadataTemplateEditModeField>(section->GetEditFields()).back();
    added->GetKeyEdit().TypeText(u"take");
    added->GetRequiredCheckBox().Press();
    section->GetAddField().GetSaveButton().Press();

    const auto saved = QL::ReadPresetFile(crewPath).document->fields;
    ASSERT_EQ(saved.size(), 2u);
    EXPECT_EQ(saved[0], (QL::PresetFieldRecord{QL::kQLFieldMetadata, u"scene", u"7", false}));
    EXPECT_EQ(saved[1], (QL::PresetFieldRecord{QL::kQLFieldMetadata, u"take", u"", true}));
}

TEST_F(MetadataTemplateSectionTest, SaveAsRefusesANameThatIsNoFileNameFirstThenOneWithABlank) {
    ScopedInteractionDriver ui;
    Built();
    Choose(u"Crew");
    for (const std::u16string name : {u"Crew:A", u"Crew A", u"Crew_A"})
        ui->QueueModal([name](Fnd::IModalSession& session) {
            auto& prompt = dynamic_cast<fluxui::dialogs::SimpleInputBox&>(session);
            prompt.GetTextEdit().TypeText(name);
            prompt.GetOKButton().Press();
        });
    ui->QueueBoxAnswer(0);
    ui->QueueBoxAnswer(0);
    Menu(IGD::kMenuSaveAsPreset);

    ASSERT_EQ(ui->Boxes().size(), 2u);
    EXPECT_EQ(ui->Boxes()[0].title, u"Invalid Preset Name");
    EXPECT_EQ(ui->Boxes()[1].title, u"Invalid Metadata Preset Name");
    EXPECT_EQ(section->GetNormalHeader().GetPresetPopup().GetValueString(), u"Crew_A");
    EXPECT_TRUE(std::filesystem::exists(home.Path() + "/presets/metadata/Crew_A.igdmetadata"));
}

} // namespace
} // namespace igd::test
