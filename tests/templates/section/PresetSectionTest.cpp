// The preset section as a user works it: pick, create, edit, save, delete, install and reveal
// presets, over the file-backed preset service and a controller of the test's own.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/PresetFields.h"
#include "templates/fields/PresetManagementAddFieldSection.h"
#include "templates/metadata/MetadataTemplateSection.h"
#include "templates/section/PresetManagementEditModeHeader.h"
#include "tests/filedialogs/ScriptedFileDialog.h"
#include "tests/templates/TemplateSectionTest.h"

namespace igd::test {
namespace {

using fluxui::controls::UI_Popup;
using fluxui::controls::UI_TextEdit;

class PresetSectionTest : public TemplateSectionTest<MetadataTemplateSection, QL::kQLPresetCategoryMetadata> {
protected:
    // The section as a new dialog opens it, over what the controller loads.
    void Reopen(bool enabled = true) {
        section.reset();
        controller.LoadSettings();
        SetEnabled(enabled);
        Open();
    }
    static PresetRef SaveUserPreset(std::u16string_view name, std::initializer_list<std::u16string_view> keys) {
        QL::PresetFieldList fields;
        for (const std::u16string_view key : keys)
            fields.push_back(Field(QL::kQLFieldMetadata, u"", key));
        return TemplateSectionTest::SaveUserPreset(name, fields);
    }

    UI_Popup& Presets() const { return Header().GetPresetPopup(); }
    bool MenuEnabled(int row) const { return !Header().GetMenuPopup().GetItems()[row].disabled; }
    Fnd::WString Selected() const { return Presets().GetValueString(); }
    std::vector<Fnd::WString> PopupRows() const {
        std::vector<Fnd::WString> rows;
        for (const auto& item : Presets().GetItems())
            rows.push_back(item.text);
        return rows;
    }
    static UI_TextEdit& Edit(wrangler::ui::SectionViewEx& row, const char* id) { return In<UI_TextEdit>(row, id); }
    void Press(const std::string& id) const {
        section->GetAddField().BindControl<fluxui::controls::UI_Button>(id)->Press();
    }
    void AddRowWithKey(const Fnd::WString& key) const {
        Press("UI_PictureButton");
        Edit(*EditRows().back(), "MetadataKey").TypeText(key);
    }
    static std::vector<Fnd::WString> Keys(const PresetRef& preset) {
        std::vector<Fnd::WString> keys;
        for (const auto& field : preset->GetFields())
            keys.push_back(field->GetKey());
        return keys;
    }
};

TEST_F(PresetSectionTest, PopupListsNoneSystemAndUserPresetsAndTheMenuFollowsTheSelection) {
    const PresetRef user = SaveUserPreset(u"Dailies", {u"reel"});
    Open();
    EXPECT_EQ(PopupRows(), (std::vector<Fnd::WString>{u"<None>", u"", u"Production", u"Rights", u"", u"Dailies"}));
    EXPECT_EQ(Selected(), u"<None>");

    struct Case {
        Fnd::WString pick;
        bool edit, saveAs, remove, reveal;
    };
    for (const Case& each : {Case{u"Production", false, true, false, true}, Case{u"Dailies", true, true, true, true},
                             Case{u"<None>", false, false, false, false}}) {
        Pick(each.pick);
        EXPECT_EQ(Selected(), each.pick);
        EXPECT_EQ(MenuEnabled(kMenuNewPreset), true);
        EXPECT_EQ(MenuEnabled(kMenuEditPreset), each.edit) << Fnd::ToUTF8(each.pick);
        EXPECT_EQ(MenuEnabled(kMenuSaveAsPreset), each.saveAs);
        EXPECT_EQ(MenuEnabled(kMenuDeletePreset), each.remove);
        EXPECT_EQ(MenuEnabled(kMenuRevealPreset), each.reveal);
        EXPECT_EQ(MenuEnabled(kMenuInstallPreset), true);
    }
    EXPECT_EQ(notifications, 3);

    // A separator is no choice: the selection, the rows and the host stay as they were.
    Pick(u"Production");
    const std::size_t rows = NormalRows().size();
    Presets().ChooseByUser(4);
    EXPECT_EQ(Selected(), u"Production");
    EXPECT_EQ(NormalRows().size(), rows);
    EXPECT_EQ(notifications, 4);
    EXPECT_EQ(controller.GetMetadataPresetPath(), Header().GetPresetAtRow(2)->GetPath());
}

TEST_F(PresetSectionTest, NewPresetIsSavedUnderATrimmedNameAfterBlankAndRefusedNames) {
    Open();
    Menu(kMenuNewPreset);
    ASSERT_TRUE(section->IsEditing());
    EXPECT_EQ(section->GetEditHeader().GetPresetName(), u"Untitled");
    EXPECT_TRUE(EditRows().empty());
    EXPECT_FALSE(section->GetAddField().GetSaveAsButton().UI_IsEnabled());
    EXPECT_TRUE(controller.GetMetadataEditMode());
    AddRowWithKey(u"reel");
    AddRowWithKey(u"lens");
    ASSERT_EQ(EditRows().size(), 2u);
    EXPECT_TRUE(EditRows().back()->FindControl("MetadataKey")->UI_HasKeyboardFocus());

    AnswerNamePrompt(u" \t ");         // blanks only: asked again without a word
    AnswerNamePrompt(u"Day:1");        // not a file name: the box, then the prompt with the text
    AnswerNamePrompt(u"  Day1\t");
    ui->QueueBoxAnswer(0);
    Press("SaveButton");

    EXPECT_EQ(promptedWith, (std::vector<Fnd::WString>{u"", u"", u"Day:1"}));
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(ui->Boxes()[0].title, u"Invalid Preset Name");
    EXPECT_FALSE(section->IsEditing());
    EXPECT_FALSE(controller.GetMetadataEditMode());
    EXPECT_EQ(Selected(), u"Day1");
    ASSERT_TRUE(controller.GetMetadataPreset());
    EXPECT_EQ(Keys(controller.GetMetadataPreset()), (std::vector<Fnd::WString>{u"reel", u"lens"}));
    EXPECT_TRUE(std::filesystem::exists(Fnd::ToUTF8(controller.GetMetadataPresetPath())));
}

TEST_F(PresetSectionTest, SaveAsNeverOverwritesAndLeavesTheEditedPresetAsItWas) {
    SaveUserPreset(u"Dailies", {u"reel"});
    SaveUserPreset(u"Unit-B", {u"unit"});
    Open();
    Pick(u"Dailies");
    Menu(kMenuEditPreset);
    ASSERT_EQ(EditRows().size(), 1u);
    Edit(*EditRows()[0], "MetadataKey").TypeText(u"roll");

    // An existing name, in another case: the box, then the prompt again with what was typed.
    AnswerNamePrompt(u"unit-b");
    AnswerNamePrompt(u"Rolls");
    ui->QueueBoxAnswer(0);
    Press("SaveAsButton");
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(ui->Boxes()[0].text, u"Cannot save this preset. A preset file with the same name already exists.");
    EXPECT_EQ(promptedWith, (std::vector<Fnd::WString>{u"", u"unit-b"}));
    EXPECT_EQ(Selected(), u"Rolls");
    EXPECT_EQ(PopupRows().size(), 8u); // <None>, two shipped, three of the user's, two separators

    Pick(u"Dailies");
    EXPECT_EQ(Keys(section->GetStore().current), (std::vector<Fnd::WString>{u"reel"}));
    Pick(u"Unit-B");
    EXPECT_EQ(Keys(section->GetStore().current), (std::vector<Fnd::WString>{u"unit"}));
}

TEST_F(PresetSectionTest, EditSaveRewritesThePresetAndCancelThrowsTheCopyAway) {
    SaveUserPreset(u"Dailies", {u"reel", u"lens"});
    Open();
    Pick(u"Dailies");
    const PresetRef preset = section->GetStore().current;

    Menu(kMenuEditPreset);
    Edit(*EditRows()[0], "MetadataKey").TypeText(u"changed");
    Press("CancelButton");
    EXPECT_FALSE(section->IsEditing());
    EXPECT_EQ(Keys(preset), (std::vector<Fnd::WString>{u"reel", u"lens"}));
    EXPECT_EQ(NormalRows().size(), 2u);

    // Moved, removed and saved at once: the removed row is gone before its arrows are refreshed.
    Menu(kMenuEditPreset);
    AddRowWithKey(u"camera");
    auto rows = EditRows();
    EXPECT_FALSE(rows[0]->GetMoveUpButton().UI_IsEnabled());
    EXPECT_FALSE(rows[2]->GetMoveDownButton().UI_IsEnabled());
    rows[2]->GetMoveUpButton().Press();
    rows = EditRows();
    EXPECT_TRUE(rows[2]->GetMoveUpButton().UI_IsEnabled());
    EXPECT_FALSE(rows[2]->GetMoveDownButton().UI_IsEnabled());
    rows[2]->GetRemoveButton().Press();
    Press("SaveButton");
    EXPECT_EQ(Keys(preset), (std::vector<Fnd::WString>{u"reel", u"camera"}));
    EXPECT_EQ(Selected(), u"Dailies");

    Menu(kMenuEditPreset);
    EditRows().back()->GetRemoveButton().Press();
    EXPECT_TRUE(EditRows().back()->GetMoveDownButton().UI_IsEnabled());
    Fnd::GetDefaultQueue().Drain();
    EXPECT_FALSE(EditRows().back()->GetMoveDownButton().UI_IsEnabled());
}

TEST_F(PresetSectionTest, TypedValuesReachTheIngestAndBecomeDefaultsOnlyThroughSaveAs) {
    Open();
    Pick(u"Production");
    EXPECT_FALSE(MenuEnabled(kMenuClearTextFields));
    Edit(*NormalRows()[0], "AutoHintTextEdit").TypeText(u"Feature");
    EXPECT_TRUE(MenuEnabled(kMenuClearTextFields));
    const PresetRef shipped = controller.GetMetadataPreset();
    EXPECT_EQ(shipped->GetFields()[0]->GetValue(), u"Feature");
    EXPECT_EQ(shipped->GetFields()[0]->GetFormat(), u"");

    AnswerNamePrompt(u"Feature");
    Menu(kMenuSaveAsPreset);
    EXPECT_EQ(controller.GetMetadataPreset()->GetFields()[0]->GetFormat(), u"Feature");

    Edit(*NormalRows()[0], "AutoHintTextEdit").TypeText(u"x");
    Menu(kMenuClearTextFields);
    EXPECT_EQ(controller.GetMetadataPreset()->GetFields()[0]->GetValue(), u"");
    EXPECT_FALSE(MenuEnabled(kMenuClearTextFields));

    CancelNamePrompt();
    Menu(kMenuSaveAsPreset);
    EXPECT_EQ(Selected(), u"Feature");
}

TEST_F(PresetSectionTest, DeleteAsksWithNoAsTheDefaultAndLeavesNone) {
    SaveUserPreset(u"Dailies", {u"reel"});
    Open();
    Pick(u"Dailies");
    const std::string file = Fnd::ToUTF8(controller.GetMetadataPresetPath());

    ui->QueueBoxAnswer(1);
    Menu(kMenuDeletePreset);
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(ui->Boxes()[0].text, u"Are you sure you want to delete the preset \"Dailies\"?\nThis cannot be undone.");
    EXPECT_EQ(ui->Boxes()[0].buttons[ui->Boxes()[0].defaultButton], u"No");
    EXPECT_EQ(Selected(), u"Dailies");
    EXPECT_TRUE(std::filesystem::exists(file));

    ui->QueueBoxAnswer(0);
    Menu(kMenuDeletePreset);
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(Selected(), u"<None>");
    EXPECT_FALSE(controller.GetMetadataPreset());
    EXPECT_EQ(controller.GetMetadataPresetPath(), u"");
    EXPECT_EQ(PopupRows().size(), 4u);
}

TEST_F(PresetSectionTest, InstallOfAListedPresetKeepsOneRowAndRevealShowsItsFile) {
    SaveUserPreset(u"Dailies", {u"reel"});
    const std::string copy = home.Path() + "/Dailies copy.igdmetadata";
    Open();
    Pick(u"Dailies");
    std::filesystem::copy_file(Fnd::ToUTF8(controller.GetMetadataPresetPath()), copy);
    Pick(u"<None>");

    auto dialog = std::make_shared<ScriptedFileDialog>();
    dialog->QueueChoose({Fnd::FromUTF8(copy)});
    {
        ScopedFileDialogFactory factory(dialog);
        Menu(kMenuInstallPreset);
    }
    EXPECT_EQ(dialog->title, u"Install Preset File");
    EXPECT_EQ(Selected(), u"Dailies");
    EXPECT_EQ(PopupRows().size(), 6u);

    const int before = notifications;
    Menu(kMenuRevealPreset);
    EXPECT_EQ(ui->Reveals(), std::vector<Fnd::WString>{controller.GetMetadataPresetPath()});
    EXPECT_EQ(notifications, before);
}

TEST_F(PresetSectionTest, StoredPathIsFoundAgainOrNoneWhenTheFileIsGone) {
    const PresetRef dailies = SaveUserPreset(u"Dailies", {u"reel"});
    controller.SetMetadataPreset(dailies);
    controller.SaveSettings();
    Reopen();
    EXPECT_EQ(Selected(), u"Dailies");
    EXPECT_EQ(NormalRows().size(), 1u);

    std::filesystem::remove(Fnd::ToUTF8(dailies->GetPath()));
    Reopen();
    EXPECT_EQ(Selected(), u"<None>");
    EXPECT_EQ(controller.GetMetadataPresetPath(), u"");
}

TEST_F(PresetSectionTest, EnableFollowsCheckboxAndPowerUnlessTheSiteLocksTheSettings) {
    for (const bool locked : {false, true}) {
        site.settingsLocked = locked;
        Reopen(false);
        section->GetEnableCheckBox().Press();
        EXPECT_EQ(controller.GetEnableMetadataTemplate(), !locked) << locked;
        EXPECT_EQ(section->GetPowerState(), !locked);
        EXPECT_EQ(Header().UI_IsEnabled(), !locked);
        section->GetPowerOffButton().Press();
        EXPECT_FALSE(controller.GetEnableMetadataTemplate());
        EXPECT_FALSE(section->GetEnableCheckBox().IsChecked());
        EXPECT_FALSE(Header().UI_IsEnabled());
    }
}

TEST_F(PresetSectionTest, ApplyScopeIsStoredAndFollowsTheTransferSwitch) {
    Open();
    UI_Popup& scope = *Header().GetScopePopup();
    scope.ChooseByUser(1);
    EXPECT_EQ(controller.GetMetadataApplyScope(), 1u);
    controller.SetTransferDisabled(true);
    EXPECT_FALSE(scope.UI_IsEnabled());
    controller.SetTransferDisabled(false);
    EXPECT_TRUE(scope.UI_IsEnabled());
    section.reset();
    controller.SetTransferDisabled(true); // the closed section no longer listens
}

} // namespace
} // namespace igd::test
