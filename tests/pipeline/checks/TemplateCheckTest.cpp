// The checks of the rename and metadata templates before an ingest: when they pass silently,
// when they ask, and the exact words when they refuse.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/pipeline/PlanTestSupport.h"
#include "QL/PresetFieldFactory.h"
#include "QL/PresetObject.h"
#include "fluxcore/ApplicationName.h"
#include "pipeline/checks/TemplateChecks.h"
#include "settings/IngestSettingsController.h"

namespace igd::test {
namespace {

using IGD::PresetRef;
using Fields = QL::PresetFieldList;

Fnd::InterfaceRef<QL::IQLPresetField> Field(QL::_QLPresetFieldType type, std::u16string_view value = {},
                                            std::u16string_view key = {}, bool required = false) {
    auto field = QL::CreatePresetField(type);
    field->SetKey(Fnd::WString(key));
    field->SetValue(Fnd::WString(value));
    field->SetRequired(required);
    return field;
}

Fnd::InterfaceRef<QL::IQLPresetField> Text(std::u16string_view value) {
    return Field(QL::kQLFieldCustomText, value);
}

Fnd::InterfaceRef<QL::IQLPresetField> Metadata(std::u16string_view key, std::u16string_view value,
                                               bool required) {
    return Field(QL::kQLFieldMetadata, value, key, required);
}

PresetRef Preset(QL::_QLPresetCategory category, const Fields& fields) {
    return PresetRef(QL::PresetObject::Create(category, u"Template", fields).get());
}

// The session and the controller's switches as the dialog leaves them before an ingest.
class TemplateCheckTest : public PlanTest {
protected:
    TemplateCheckTest() : settings_(*IGD::IngestSettingsController::GetInstance()) {
        settings_.ResetToDefaults();
        session_ = NewSession();
        // Stop boxes carry the host's name.
        fluxcore::config::SetApplicationName(u"Kiln Studio");
    }
    ~TemplateCheckTest() override { settings_.ResetToDefaults(); }

    // Each box shown from the first'th on, as "title: text [buttons]".
    std::vector<std::string> BoxesFrom(std::size_t first) const {
        std::vector<std::string> shown;
        for (std::size_t i = first; i < ui->Boxes().size(); ++i) {
            const Fnd::MessageBoxRequest& box = ui->Boxes()[i];
            std::string buttons;
            for (const Fnd::WString& button : box.buttons)
                buttons += (buttons.empty() ? "" : "|") + Fnd::ToUTF8(button);
            shown.push_back(Fnd::ToUTF8(box.title + u": " + box.text) + " [" + buttons + "]");
        }
        return shown;
    }

    IGD::IngestSettingsController& settings_;
    IGD::IngestDialogDataRef session_;
};

const std::string kEmptyRenameQuestion =
    "Empty Preset: You have chosen an empty Rename preset. Do you want to continue? [Yes|No]";
const std::string kEmptyMetadataQuestion =
    "Empty Preset: You have chosen an empty Metadata preset. Do you want to continue? [Yes|No]";
const std::string kNoEffect =
    "Kiln Studio: Cannot proceed with current Rename preset.\n\nNo effective preset field is found. [OK]";

struct TemplateCase {
    const char* what;
    bool editMode;
    bool hasPreset;
    Fields fields;
    std::vector<int> answers; // to the boxes, in order
    bool passes;
    std::vector<std::string> boxes;
};

// Rows of the rename check, all with the template switched on.
const std::vector<TemplateCase>& RenameCases() {
    static const std::vector<TemplateCase> cases{
        {"edit mode refuses before the preset is looked at",
         true,
         false,
         {},
         {0},
         false,
         {"Kiln Studio: Please save your rename preset before continuing. [OK]"}},
        {"no preset, and the user goes on", false, false, {}, {0}, true, {kEmptyRenameQuestion}},
        {"no preset, and the user stops", false, false, {}, {1}, false, {kEmptyRenameQuestion}},
        {"a preset without fields asks the same", false, true, {}, {1}, false, {kEmptyRenameQuestion}},
        {"an empty text field alone has no effect", false, true, {Text(u"")}, {0}, false, {kNoEffect}},
        {"a text field of dots makes no name", false, true, {Text(u"."), Text(u"")}, {0}, false, {kNoEffect}},
        {"a date field with an empty text field passes",
         false,
         true,
         {Field(QL::kQLFieldCreationDate), Text(u"")},
         {},
         true,
         {}},
        {"a usable text field passes", false, true, {Text(u""), Text(u"Day 1")}, {}, true, {}},
        {"an illegal character refuses, even after a field with effect",
         false,
         true,
         {Field(QL::kQLFieldFileName), Text(u"Scene:1")},
         {0},
         false,
         {"Kiln Studio: Cannot proceed with the current Rename preset.\n\nA text field in Rename preset cannot "
          "contain any of the following characters:\n\\ / : * ? \" < > | [OK]"}},
    };
    return cases;
}

TEST_F(TemplateCheckTest, RenameTemplateRows) {
    for (const TemplateCase& row : RenameCases()) {
        SCOPED_TRACE(row.what);
        const std::size_t first = ui->Boxes().size();
        settings_.SetEnableRenameTemplate(true);
        settings_.SetRenameEditMode(row.editMode);
        session_->SetRenamePreset(row.hasPreset ? Preset(QL::kQLPresetCategoryRename, row.fields) : nullptr);
        for (int answer : row.answers)
            ui->QueueBoxAnswer(answer);

        EXPECT_EQ(IGD::CheckRenameTemplate(*session_, nullptr), row.passes);
        EXPECT_EQ(BoxesFrom(first), row.boxes);
        EXPECT_EQ(ui->UnusedAnswers(), 0u);
    }
}

TEST_F(TemplateCheckTest, TheEmptyPresetQuestionDefaultsToGoingOn) {
    settings_.SetEnableRenameTemplate(true);
    ui->QueueBoxAnswer(0);
    EXPECT_TRUE(IGD::CheckRenameTemplate(*session_, nullptr));
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(ui->Boxes()[0].defaultButton, 0);
    EXPECT_EQ(ui->Boxes()[0].icon, Fnd::BoxIcon::Question);
}

TEST_F(TemplateCheckTest, ARefusedRenamePresetIsLeftAsTheUserWroteIt) {
    settings_.SetEnableRenameTemplate(true);
    const PresetRef preset = Preset(QL::kQLPresetCategoryRename, {Text(u"A/B")});
    session_->SetRenamePreset(preset);
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(IGD::CheckRenameTemplate(*session_, nullptr));
    EXPECT_EQ(preset->GetFields()[0]->GetValue(), u"A/B");
    EXPECT_EQ(ui->Boxes()[0].icon, Fnd::BoxIcon::Stop);
}

// Off means off: neither the edit flag nor an empty or broken preset matters then.
TEST_F(TemplateCheckTest, SwitchedOffTemplatesPassWithoutLookingAtThem) {
    settings_.SetRenameEditMode(true);
    settings_.SetMetadataEditMode(true);
    session_->SetRenameEnabled(true);
    session_->SetMetadataEnabled(true);
    session_->SetRenamePreset(Preset(QL::kQLPresetCategoryRename, {Text(u"a:b")}));
    session_->SetMetadataPreset(Preset(QL::kQLPresetCategoryMetadata, {Metadata(u"scene", u"", true)}));

    EXPECT_TRUE(IGD::CheckRenameTemplate(*session_, nullptr));
    EXPECT_TRUE(IGD::CheckMetadataTemplate(*session_, nullptr));
    EXPECT_TRUE(ui->Boxes().empty());
}

const std::vector<TemplateCase>& MetadataCases() {
    static const std::vector<TemplateCase> cases{
        {"edit mode refuses",
         true,
         true,
         {Metadata(u"scene", u"1", true)},
         {0},
         false,
         {"Kiln Studio: Please save your metadata preset before continuing. [OK]"}},
        {"no preset, and the user goes on", false, false, {}, {0}, true, {kEmptyMetadataQuestion}},
        {"a preset without fields, and the user stops",
         false,
         true,
         {},
         {1},
         false,
         {kEmptyMetadataQuestion}},
        {"the first empty required field is named",
         false,
         true,
         {Metadata(u"take", u"", false), Metadata(u"scene", u"", true), Metadata(u"shot", u"", true)},
         {0},
         false,
         {"Kiln Studio: Required field scene is empty. [OK]"}},
        {"required fields with values and optional empty ones pass",
         false,
         true,
         {Metadata(u"scene", u"12", true), Metadata(u"take", u"", false)},
         {},
         true,
         {}},
    };
    return cases;
}

TEST_F(TemplateCheckTest, MetadataTemplateRows) {
    for (const TemplateCase& row : MetadataCases()) {
        SCOPED_TRACE(row.what);
        const std::size_t first = ui->Boxes().size();
        settings_.SetEnableMetadataTemplate(true);
        settings_.SetMetadataEditMode(row.editMode);
        session_->SetMetadataPreset(row.hasPreset ? Preset(QL::kQLPresetCategoryMetadata, row.fields)
                                                  : nullptr);
        for (int answer : row.answers)
            ui->QueueBoxAnswer(answer);

        EXPECT_EQ(IGD::CheckMetadataTemplate(*session_, nullptr), row.passes);
        EXPECT_EQ(BoxesFrom(first), row.boxes);
        EXPECT_EQ(ui->UnusedAnswers(), 0u);
    }
}

} // namespace
} // namespace igd::test
