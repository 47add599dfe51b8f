#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "Av/EncoderList.h"
#include "IGD/LayoutPreview.h"
#include "QL/TaskPreferences.h"
#include "support/TempTree.h"
#include "tests/settings/SettingsFixture.h"
#include "transfer/SectionTree.h"
#include "transfer/transcode/ConcatenateSettingSection.h"
#include "transfer/transcode/TranscodeSettingSection.h"

namespace igd::test {
namespace {

using Rows = std::vector<std::u16string>;

// The primary's transcode section opened over the real encoder list, whose preset folders the
// test fills: QuickTime has shipped and user presets, MXF OP1a none until a test adds one.
class TranscodeSectionTest : public SettingsFixture {
protected:
    TranscodeSectionTest() {
        AddPreset("system/proxy", "Proxy", "QuickTime", "<order>1</order>");
        AddPreset("system/lt", "LT", "QuickTime", "<order>2</order>");
        AddPreset("user/mine", "Mine", "QuickTime");
        Mid::PresetManager::Install(
            Av::MakeEncoderList({presets.NativePath("user"), presets.NativePath("system")}));
        controller.SetSettingsChangedCallback([this] { ++notifications; });
    }
    ~TranscodeSectionTest() override {
        section.reset();
        Mid::PresetManager::Install(nullptr);
    }

    void AddPreset(const std::string& file, const std::string& name, const std::string& exporter,
                   const std::string& extra = "") {
        presets.MakeFile(file + ".igdencoder", "<encoderPreset version=\"1\"><name>" + name +
                                                   "</name><exporter>" + exporter + "</exporter>" + extra +
                                                   "<video encoder=\"dnxhd\"/></encoderPreset>");
    }
    // The primary's stored choice, and whether dialogs keep it.
    void StoreTranscode(const std::string& preset, bool keepState, bool stitch = false) {
        Put("Primary.Transcode", true);
        Put("Primary.TranscodeExporter", std::string("QuickTime"));
        Put("Primary.TranscodePreset", preset);
        Put("Primary.ConcatenatePreset", stitch);
        preferences->values[std::string(QL::kPrefsKeepTranscodeState)] = keepState;
    }
    TranscodeSettingSection& Open(const char* layout = "igdTranscodeSetting", std::uint32_t index = 0) {
        controller.LoadSettings();
        section = new TranscodeSettingSection(layout, index, {std::shared_ptr<void>(), &controller});
        wrangler::ui::BuildSectionTree(*section, *IngestResourceManager(), nullptr);
        wrangler::ui::ApplySettingsToTree(*section);
        return *section;
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
    void ChooseFormat(std::u16string_view text) {
        const Rows rows = RowsOf(section->GetFormatPopup());
        section->GetFormatPopup().ChooseByUser(
            static_cast<int>(std::find(rows.begin(), rows.end(), text) - rows.begin()));
    }

    TempTree presets;
    boost::intrusive_ptr<TranscodeSettingSection> section;
    int notifications = 0;
};

TEST_F(TranscodeSectionTest, PresetRowsShowShippedPresetsFirstAndCustomWhenThereAreNone) {
    StoreTranscode("LT", true);
    auto& popup = Open().GetPresetPopup();
    EXPECT_EQ(RowsOf(popup), (Rows{u"Proxy", u"LT", u"", u"Mine"}));
    EXPECT_EQ(Setting().preset->GetName(), u"LT");
    popup.ChooseByUser(2);
    EXPECT_FALSE(Setting().preset) << "the separator stands for no preset";
    EXPECT_EQ(Setting().presetName, u"");

    ChooseFormat(u"MXF OP1a");
    EXPECT_EQ(RowsOf(popup), Rows{u"Custom"});
    EXPECT_FALSE(popup.UI_IsEnabled());
    EXPECT_EQ(Setting().exporter->GetDisplayName(), Setting().exporterName);
    EXPECT_FALSE(Setting().preset);
    EXPECT_EQ(notifications, 2);

    // One list alone has no separator, whichever list it is.
    AddPreset("user/dnx", "Own DNx", "MXF OP1a");
    ChooseFormat(u"QuickTime");
    ChooseFormat(u"MXF OP1a");
    EXPECT_EQ(RowsOf(popup), Rows{u"Own DNx"});
    EXPECT_TRUE(popup.UI_IsEnabled());
    std::filesystem::remove(presets.NativePath("user/mine.igdencoder"));
    ChooseFormat(u"QuickTime");
    EXPECT_EQ(RowsOf(popup), (Rows{u"Proxy", u"LT"}));
    EXPECT_EQ(Setting().preset->GetName(), u"Proxy");
}

TEST_F(TranscodeSectionTest, TheDialogOpensWithTranscodingOffUnlessTheStateIsKept) {
    StoreTranscode("LT", false);
    Open();
    EXPECT_FALSE(section->GetTranscodeCheckbox()->IsChecked() || Setting().enabled);
    // A clear box takes no format change: the popups keep what they show.
    ChooseFormat(u"MXF OP1a");
    EXPECT_EQ(section->GetFormatPopup().GetValueString(), u"QuickTime");
    EXPECT_EQ(section->GetPresetPopup().GetValueString(), u"LT");
    EXPECT_EQ(notifications, 0);

    StoreTranscode("LT", true, true);
    Open();
    EXPECT_TRUE(section->GetTranscodeCheckbox()->IsChecked());
    EXPECT_TRUE(section->GetConcatenateSection()->GetConcatenateCheckbox().IsChecked());
    controller.SaveSettings();
    EXPECT_EQ(Stored(K("Primary.Transcode")), Proj::PreferenceData(true));
    EXPECT_EQ(Stored(K("Primary.TranscodePreset")), Proj::PreferenceData(std::string("LT")));
    EXPECT_EQ(Stored(K("Primary.ConcatenatePreset")), Proj::PreferenceData(true));

    StoreTranscode("Gone", true);
    Open();
    EXPECT_FALSE(section->GetTranscodeCheckbox()->IsChecked() || Setting().enabled) << "a lost preset";
    EXPECT_EQ(section->GetPresetPopup().GetValue(), 0);
}

TEST_F(TranscodeSectionTest, TheStitchNameIsStoredTrimmedAndTheStitchEndsWithTheTranscode) {
    StoreTranscode("LT", true);
    auto& stitch = *Open().GetConcatenateSection();
    stitch.GetConcatenateCheckbox().Press();
    EXPECT_TRUE(stitch.GetConcatenateEdit().UI_HasKeyboardFocus());
    stitch.GetConcatenateEdit().TypeText(u"  Day one\t");
    EXPECT_EQ(Setting().concatenateName, u"Day one");
    EXPECT_TRUE(Setting().concatenate);
    stitch.GetConcatenateEdit().TypeText(u"   ");
    EXPECT_EQ(Setting().concatenateName, u"");
    stitch.GetConcatenateEdit().UI_LoseKeyboardFocus();
    Setting().nameErrorCallback(true);
    EXPECT_TRUE(stitch.GetConcatenateEdit().UI_HasKeyboardFocus())
        << "a refused name takes the user to the edit";

    section->GetTranscodeCheckbox()->Press();
    EXPECT_FALSE(Setting().concatenate);
    EXPECT_TRUE(stitch.GetConcatenateCheckbox().IsChecked());
    EXPECT_FALSE(stitch.IsContentEnabled());
}

TEST_F(TranscodeSectionTest, AHostedBackupAlwaysTranscodesAndNeverStitches) {
    HostApp::SetApplicationType(5);
    Put("Local.Backup.Count", 1u);
    Open("igdKilnHostedTranscodeSetting", 1);
    EXPECT_FALSE(section->GetTranscodeCheckbox() || section->GetConcatenateSection());
    EXPECT_TRUE(Setting(1).enabled);
    EXPECT_EQ(Setting(1).presetName, u"Proxy");
}

} // namespace
} // namespace igd::test
