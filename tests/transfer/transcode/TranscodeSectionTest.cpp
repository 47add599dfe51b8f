#include <gtest/gtest.h>

#include <filesystem>

#include "Av/EncoderList.h"
#include "IGD/LayoutPreview.h"
#include "Proj/SerializeableValue.h"
#include "QL/TaskPreferences.h"
#include "support/TempTree.h"
#include "tests/settings/SettingsFixture.h"
#include "transfer/SectionTree.h"
#include "transfer/local/PrimaryDestinationSection.h"
#include "transfer/transcode/ConcatenateSettingSection.h"
#include "transfer/transcode/TranscodeSettingSection.h"
#include "transfer/verify/VerifySettingSection.h"

namespace igd::test {
namespace {

using Rows = std::vector<std::u16string>;
// Rows of the format popup: the exporters every FFmpeg build of ours can write come first.
constexpr int kQuickTime = 0;
constexpr int kMxf = 1;

// The primary opened as the dialog builds it, over the real encoder list whose preset folders the
// test fills: QuickTime has shipped and user presets, MXF OP1a none until a test adds one.
class TranscodeSectionTest : public SettingsFixture {
protected:
    TranscodeSectionTest() {
        AddPreset("system/1", "Proxy", "QuickTime");
        AddPreset("system/2", "LT", "QuickTime");
        AddPreset("user/mine", "Mine", "QuickTime");
        Mid::PresetManager::Install(
            Av::MakeEncoderList({presets.NativePath("user"), presets.NativePath("system")}));
        controller.SetSettingsChangedCallback([this] { ++notifications; });
    }
    ~TranscodeSectionTest() override {
        root.reset();
        Mid::PresetManager::Install(nullptr);
    }

    void AddPreset(const std::string& file, const std::string& name, const std::string& exporter) {
        presets.MakeFile(file + ".igdencoder", "<encoderPreset version=\"1\"><name>" + name +
                                                   "</name><exporter>" + exporter +
                                                   "</exporter><video encoder=\"dnxhd\"/></encoderPreset>");
    }
    // The primary's stored choice, and whether dialogs keep it.
    void StoreTranscode(const std::string& preset, bool keepState, bool stitch = false) {
        Put("Primary.Transcode", true);
        Put("Primary.TranscodeExporter", std::string("QuickTime"));
        Put("Primary.TranscodePreset", preset);
        Put("Primary.ConcatenatePreset", stitch);
        preferences->values[std::string(QL::kPrefsKeepTranscodeState)] = keepState;
    }
    template <typename Section, typename... Arguments> Section& Build(Arguments... arguments) {
        controller.LoadSettings();
        auto* built = new Section(
            arguments..., std::shared_ptr<IngestSettingsController>(std::shared_ptr<void>(), &controller));
        root = built;
        wrangler::ui::BuildSectionTree(*root, *IngestResourceManager(), nullptr);
        wrangler::ui::ApplySettingsToTree(*root);
        return *built;
    }
    TranscodeSettingSection& Open() {
        primary = &Build<PrimaryDestinationSection>(std::string("igdPrimaryDestinationHeader"));
        return *(section = primary->GetTranscodeSection());
    }
    QL::IngestTask::TranscodeSetting& Setting(int index = 0) {
        return *controller.GetDestinationSetting(index).destination->GetTranscodeSetting();
    }
    static Rows RowsOf(const fluxui::controls::UI_Popup& popup) {
        Rows rows;
        for (const auto& item : popup.GetItems())
            rows.push_back(item.text);
        return rows;
    }

    TempTree presets;
    wrangler::ui::SectionViewExRef root;
    PrimaryDestinationSection* primary = nullptr;
    TranscodeSettingSection* section = nullptr;
    int notifications = 0;
};

TEST_F(TranscodeSectionTest, PresetRowsShowShippedPresetsFirstAndCustomWhenThereAreNone) {
    StoreTranscode("LT", true);
    auto& popup = Open().GetPresetPopup();
    EXPECT_EQ(RowsOf(popup), (Rows{u"Proxy", u"LT", u"", u"Mine"}));
    popup.ChooseByUser(2);
    EXPECT_FALSE(Setting().preset) << "the separator stands for no preset";

    section->GetFormatPopup().ChooseByUser(kMxf);
    EXPECT_EQ(RowsOf(popup), Rows{u"Custom"});
    EXPECT_FALSE(popup.UI_IsEnabled());
    EXPECT_EQ(Setting().exporter->GetDisplayName(), Setting().exporterName);
    EXPECT_FALSE(Setting().preset);
    EXPECT_EQ(notifications, 2);

    // One list alone has no separator.
    std::filesystem::remove(presets.NativePath("user/mine.igdencoder"));
    section->GetFormatPopup().ChooseByUser(kQuickTime);
    EXPECT_EQ(RowsOf(popup), (Rows{u"Proxy", u"LT"}));
    EXPECT_EQ(Setting().preset->GetName(), u"Proxy");
}

TEST_F(TranscodeSectionTest, TheDialogOpensWithTranscodingOffUnlessTheStateIsKept) {
    StoreTranscode("LT", false);
    Open();
    EXPECT_FALSE(section->GetTranscodeCheckbox()->IsChecked() || Setting().enabled);
    EXPECT_TRUE(primary->GetVerifySection().IsContentEnabled());
    // A clear box takes no format change: the popups keep what they show.
    section->GetFormatPopup().ChooseByUser(kMxf);
    EXPECT_EQ(section->GetPresetPopup().GetValueString(), u"LT");
    EXPECT_EQ(notifications, 0);

    StoreTranscode("LT", true, true);
    Open();
    EXPECT_TRUE(section->GetConcatenateSection()->GetConcatenateCheckbox().IsChecked());
    EXPECT_FALSE(primary->GetVerifySection().IsContentEnabled()) << "a transcoded primary verifies nothing";
    controller.SaveSettings();
    EXPECT_EQ(Stored(K("Primary.ConcatenatePreset")), Proj::PreferenceData(true));
    section->GetTranscodeCheckbox()->Press();
    EXPECT_TRUE(primary->GetVerifySection().IsContentEnabled());

    StoreTranscode("Gone", true);
    Open();
    EXPECT_FALSE(section->GetTranscodeCheckbox()->IsChecked() || Setting().enabled) << "a lost preset";
    EXPECT_EQ(section->GetPresetPopup().GetValue(), 0);
}

TEST_F(TranscodeSectionTest, TheStitchNameIsStoredTrimmedAndTheStitchEndsWithTheTranscode) {
    StoreTranscode("LT", true);
    auto& stitch = *Open().GetConcatenateSection();
    auto& edit = stitch.GetConcatenateEdit();
    stitch.GetConcatenateCheckbox().Press();
    EXPECT_TRUE(edit.UI_HasKeyboardFocus());
    edit.TypeText(u"  Day one\t");
    EXPECT_EQ(Setting().concatenateName, u"Day one");
    EXPECT_TRUE(Setting().concatenate);
    // The name is this dialog's only: nothing stored holds it, and the next dialog starts without it.
    controller.SaveSettings();
    for (const auto& [key, value] : preferences->values)
        EXPECT_EQ(Proj::FormatPreferenceData(value).find("Day one"), std::string::npos) << key;
    edit.TypeText(u"   ");
    EXPECT_EQ(Setting().concatenateName, u"");
    edit.UI_LoseKeyboardFocus();
    Setting().nameErrorCallback(true);
    EXPECT_TRUE(edit.UI_HasKeyboardFocus()) << "a refused name takes the user to the edit";

    section->GetTranscodeCheckbox()->Press();
    EXPECT_FALSE(Setting().concatenate || stitch.IsContentEnabled());
    EXPECT_TRUE(stitch.GetConcatenateCheckbox().IsChecked());

    EXPECT_EQ(Open().GetConcatenateSection()->GetConcatenateEdit().GetValue(), u"");
    EXPECT_EQ(Setting().concatenateName, u"");
}

} // namespace
} // namespace igd::test
