// The rename section as a user works it, over the shipped presets and a user folder of the test's
// own: what the rows show, what the sample line says, and what lands in the settings.
#include <regex>

#include "HostApp/ApplicationType.h"
#include "fluxui/controls/UI_NumberEdit.h"
#include "fluxui/controls/UI_Popup.h"
#include "shell/AutoHintTextEdit.h"
#include "support/PresetFields.h"
#include "templates/rename/RenamePatternText.h"
#include "templates/rename/RenameTemplateAddFieldSection.h"
#include "templates/rename/RenameTemplateSampleSection.h"
#include "templates/rename/RenameTemplateSection.h"
#include "tests/templates/TemplateSectionTest.h"

namespace igd::test {
namespace {

using fluxui::controls::UI_Popup;
using fluxui::controls::UI_StaticText;

class RenameSectionTest : public TemplateSectionTest<RenameTemplateSection, QL::kQLPresetCategoryRename> {
protected:
    UI_Popup& AddPopup() const {
        return static_cast<RenameTemplateAddFieldSection&>(section->GetAddField()).GetAddPopup();
    }
    Fnd::WString Sample() const { return section->GetSampleSection().GetSampleText(); }
    // What a user reads on a row: the label, then the shown text or typed value.
    static std::pair<std::string, std::string> Shown(const PresetManagementNormalModeField& row) {
        const auto& text = In<UI_StaticText>(row, "UI_StaticText");
        const auto& edit = In<AutoHintTextEdit>(row, "AutoHintTextEdit");
        const auto& number = In<fluxui::controls::UI_NumberEdit>(row, "UI_UserDefStartNumber");
        const Fnd::WString value = text.UI_IsShown()   ? text.GetValue()
                                   : edit.UI_IsShown() ? edit.GetValue()
                                                       : number.GetValue();
        return {Fnd::ToUTF8(In<UI_StaticText>(row, "UI_FieldTypeLabel").GetValue()), Fnd::ToUTF8(value)};
    }
    void TypeStartNumber(const Fnd::WString& text) const {
        auto& edit = In<fluxui::controls::UI_NumberEdit>(*NormalRows().back(), "UI_UserDefStartNumber");
        edit.TypeText(text);
        edit.EndEdit(fluxui::controls::EditEnd::Commit);
    }
};

TEST_F(RenameSectionTest, ShippedPresetsShowLabelsAndPatternsInLetters) {
    Open();
    using Rows = std::vector<std::pair<std::string, std::string>>;
    const std::vector<std::pair<std::u16string, Rows>> cases{
        {u"Shoot day",
         {{"Custom Text:", "Day01_"},
          {"Creation Date:", "YYYYMMDD (Creation Date)"},
          {"Custom Text:", "_"},
          {"Auto Increment:", "001"}}},
        {u"Date_Counter",
         {{"Ingest Date:", "YYYYMMDD (Ingest Date)"}, {"Custom Text:", "_"}, {"Auto Increment:", "0001"}}},
        {u"Camera roll", {{"File Name:", "File Name"}, {"Custom Text:", "_"}, {"Custom Increment:", "1"}}},
    };
    for (const auto& [name, expected] : cases) {
        Pick(name);
        Rows shown;
        for (const auto* row : NormalRows())
            shown.push_back(Shown(*row));
        EXPECT_EQ(shown, expected) << Fnd::ToUTF8(name);
    }
    EXPECT_EQ(Sample(), u"File Name_001");
}

// The edit keeps what was typed; the setting holds what it reads as under the mask, 1 when it
// does not read as a 32-bit number.
TEST_F(RenameSectionTest, StartNumberEditStoresWhatTheMaskReads) {
    SaveUserPreset(u"Counter", {Field(QL::kQLFieldUserDefinedAutoIncrement, u"0000")});
    Open();
    Pick(u"Counter");
    const struct {
        std::u16string typed;
        std::uint32_t stored;
        std::u16string sample;
    } cases[]{{u"7", 7, u"0007"}, {u"4294967296", 1, u"0001"}, {u"4294967295", 4294967295u, u"4294967295"}};
    for (const auto& c : cases) {
        TypeStartNumber(c.typed);
        EXPECT_EQ(controller.GetUserDefAutoIncStartNumber(), c.stored) << Fnd::ToUTF8(c.typed);
        EXPECT_EQ(
            In<fluxui::controls::UI_NumberEdit>(*NormalRows().back(), "UI_UserDefStartNumber").GetValue(),
            c.typed);
        EXPECT_EQ(Sample(), c.sample);
    }
}

TEST_F(RenameSectionTest, StartNumberSurvivesClearingAndTheSamePresetButNotAnother) {
    Open();
    Pick(u"Camera roll");
    TypeStartNumber(u"40");
    // Clearing empties the text rows only: the counter keeps its start.
    Menu(kMenuClearTextFields);
    EXPECT_EQ(Sample(), u"File Name040");
    Pick(u"Camera roll");
    EXPECT_EQ(controller.GetUserDefAutoIncStartNumber(), 40u);
    Pick(u"Shoot day");
    EXPECT_EQ(controller.GetUserDefAutoIncStartNumber(), 1u);
}

TEST_F(RenameSectionTest, OnlyOneCustomAutoIncrementPerPreset) {
    Open();
    Menu(kMenuNewPreset);
    controller.SetUserDefAutoIncStartNumber(9);
    AddPopup().ChooseByUser(1);
    ASSERT_EQ(EditRows().size(), 1u);
    EXPECT_EQ(controller.GetUserDefAutoIncStartNumber(), 1u) << "the first one starts at 1";
    EXPECT_EQ(AddPopup().GetValue(), -1) << "the popup is a menu: it keeps no choice";

    controller.SetUserDefAutoIncStartNumber(9);
    ui->QueueBoxAnswer(0);
    AddPopup().ChooseByUser(1);
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(ui->Boxes()[0].title, u"Add Field Failure");
    EXPECT_EQ(ui->Boxes()[0].text,
              u"Can not add multiple Custom Auto Increment fields into a single preset!");
    EXPECT_EQ(EditRows().size(), 1u);
    EXPECT_EQ(controller.GetUserDefAutoIncStartNumber(), 9u);

    // A removed row is gone at once, even before the rows left are tidied up.
    EditRows().front()->GetRemoveButton().Press();
    AddPopup().ChooseByUser(1);
    Fnd::GetDefaultQueue().Drain();
    ASSERT_EQ(EditRows().size(), 1u);
    EXPECT_EQ(EditRows().front()->GetField()->GetType(), QL::kQLFieldUserDefinedAutoIncrement);
    EXPECT_EQ(ui->Boxes().size(), 1u);
}

// Hosted, the counters are left out and the entries map two kinds further on.
TEST_F(RenameSectionTest, AddPopupOffersTheKindsTheHostAllows) {
    const std::vector<std::u16string> all{
        u"Auto Increment", u"Custom Auto Increment", u"Custom Text", u"Date", u"Time", u"File Name"};
    for (const int host : {0, 5}) {
        HostApp::SetApplicationType(host);
        Open();
        Menu(kMenuNewPreset);
        std::vector<std::u16string> entries;
        for (const auto& item : AddPopup().GetItems())
            entries.push_back(item.text);
        const std::size_t skipped = host ? 2 : 0;
        EXPECT_EQ(entries, std::vector<std::u16string>(all.begin() + skipped, all.end())) << host;
        for (int entry = 0; entry < static_cast<int>(entries.size()); ++entry)
            AddPopup().ChooseByUser(entry);
        std::vector<QL::_QLPresetFieldType> added;
        for (const auto* row : EditRows())
            added.push_back(row->GetField()->GetType());
        const std::vector<QL::_QLPresetFieldType> kinds{
            QL::kQLFieldAutoIncrement, QL::kQLFieldUserDefinedAutoIncrement,
            QL::kQLFieldCustomText,    QL::kQLFieldCreationDate,
            QL::kQLFieldCreationTime,  QL::kQLFieldFileName};
        EXPECT_EQ(added, std::vector<QL::_QLPresetFieldType>(kinds.begin() + skipped, kinds.end())) << host;
    }
}

// One popup chooses kind and pattern: the creation entries come first, then the ingest ones.
TEST_F(RenameSectionTest, DateRowPopupTurnsIngestDateIntoCreationDate) {
    SaveUserPreset(u"Dated", {Field(QL::kQLFieldIngestDate, u"%Y-%m-%d")});
    Open();
    Pick(u"Dated");
    Menu(kMenuEditPreset);
    ASSERT_EQ(EditRows().size(), 1u);
    auto& popup = In<UI_Popup>(*EditRows().front(), "UI_Popup");
    const auto patterns = QL::GetPredefinedFieldValues(QL::kQLFieldIngestDate);
    ASSERT_EQ(popup.GetItems().size(), 2 * patterns.size());
    EXPECT_EQ(popup.GetItems()[popup.GetValue()].text, u"YYYY-MM-DD (Ingest Date)");

    popup.ChooseByUser(0);
    const PresetFieldRef& field = EditRows().front()->GetField();
    EXPECT_EQ(field->GetType(), QL::kQLFieldCreationDate);
    EXPECT_EQ(field->GetFormat(), patterns[0]);
    EXPECT_TRUE(std::regex_match(Fnd::ToUTF8(Sample()), std::regex("[0-9]{8}"))) << Fnd::ToUTF8(Sample());
}

TEST_F(RenameSectionTest, SaveRefusesATextThatCannotBeInAFileName) {
    Open();
    Menu(kMenuNewPreset);
    AddPopup().ChooseByUser(5);
    AddPopup().ChooseByUser(2);
    In<AutoHintTextEdit>(*EditRows().back(), "AutoHintTextEdit").TypeText(u"a/b");
    EXPECT_EQ(Sample(), u"File Namea/b");

    ui->QueueBoxAnswer(0);
    section->GetAddField().GetSaveButton().Press();
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(ui->Boxes()[0].text, u"The preset cannot be saved.\n\nA text field cannot contain any of the "
                                   u"following characters:\n\\ / : * ? \" < > |");
    EXPECT_TRUE(section->IsEditing());
    EXPECT_TRUE(controller.GetRenameEditMode());
}

TEST(RenamePatternText, TokensBecomeLettersWithoutSearchingThemAgain) {
    const std::vector<std::pair<std::u16string, std::u16string>> cases{
        {u"%Y%m%d", u"YYYYMMDD"}, {u"%y-%d", u"YY-DD"}, {u"%H.%M.%S", u"HH.MM.SS"}, {u"%%Y%q", u"%YYYY%q"}};
    for (const auto& [pattern, shown] : cases)
        EXPECT_EQ(PatternDisplayText(pattern), shown) << Fnd::ToUTF8(pattern);
}

} // namespace
} // namespace igd::test
