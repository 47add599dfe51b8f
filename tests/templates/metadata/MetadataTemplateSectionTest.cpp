// The "File Metadata" section as a user works it: values typed for one ingest, and keys and names
// edited until a save accepts them.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "QL/PresetFileReader.h"
#include "templates/metadata/MetadataTemplateAddFieldSection.h"
#include "templates/metadata/MetadataTemplateEditModeField.h"
#include "templates/metadata/MetadataTemplateEditModeFieldsContainer.h"
#include "templates/metadata/MetadataTemplateNormalModeField.h"
#include "templates/metadata/MetadataTemplateNormalModeFieldsContainer.h"
#include "templates/metadata/MetadataTemplateSection.h"
#include "tests/templates/TemplateSectionTest.h"

namespace igd::test {
namespace {

using namespace IGD;

class MetadataTemplateSectionTest
    : public TemplateSectionTest<MetadataTemplateSection, QL::kQLPresetCategoryMetadata> {
protected:
    // The section, with the user preset Crew (a required "scene" defaulting to "12") as first
    // written and chosen.
    void OpenOnCrew() {
        crewPath = home.MakeFile("presets/metadata/Crew.igdmetadata",
                                 "<?xml version=\"1.0\"?><preset category=\"metadata\" schema=\"igd.preset\" "
                                 "version=\"1\"><name>Crew</name><field type=\"metadata\" required=\"true\">"
                                 "<key>scene</key><format>12</format></field></preset>");
        Open();
        Pick(u"Crew");
    }
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

    std::string crewPath;
};

TEST_F(MetadataTemplateSectionTest, RowsMarkRequiredKeysAndClearTextFieldsEmptiesWhatTheyShow) {
    controller.SetMetadataSectionOpened(false);
    OpenOnCrew();
    EXPECT_FALSE(section->GetOpened());
    section->SetOpened(true);
    EXPECT_TRUE(controller.GetMetadataSectionOpened());

    Pick(u"Production");
    const auto rows = Rows<MetadataTemplateNormalModeField>(section->GetNormalFields());
    std::vector<std::u16string> labels;
    for (const auto* row : rows)
        labels.push_back(row->GetLabel().GetValue());
    EXPECT_EQ(labels, (std::vector<std::u16string>{u"production", u"director", u"cameraOperator", u"scene *",
                                                   u"take *"}));
    rows[3]->GetValueEdit().TypeText(u"42");
    EXPECT_EQ(controller.GetMetadataPreset()->GetFields()[3]->GetValue(), u"42");
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
        const std::size_t boxes = ui->Boxes().size();
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
        ASSERT_EQ(ui->Boxes().size() - boxes, each.box.empty() ? 0u : 1u);
        if (!each.box.empty()) {
            EXPECT_EQ(ui->Boxes().back().text, each.box);
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
    OpenOnCrew();
    for (const std::u16string name : {u"Crew:A", u"Crew A", u"Crew_A"})
        AnswerNamePrompt(name);
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
