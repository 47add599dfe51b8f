#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Av/EncoderList.h"
#include "Av/EncoderPresetFile.h"
#include "Mid/KilnInstalled.h"
#include "support/ScopedIgdHome.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

std::string Preset(const std::string& name, const std::string& exporter, const std::string& video,
                   const std::string& extra = "") {
    return "<?xml version=\"1.0\"?>\n<encoderPreset version=\"1\"><name>" + name + "</name><exporter>" + exporter +
           "</exporter>" + extra + "<video " + video + "/></encoderPreset>";
}

std::vector<std::string> Names(const std::vector<Mid::EncoderPresetRef>& presets) {
    std::vector<std::string> names;
    for (const auto& preset : presets)
        names.push_back(Fnd::ToUTF8(preset->GetName()));
    return names;
}

Mid::ExporterRef ExporterNamed(Mid::PresetManager& manager, const std::u16string& name) {
    for (const Mid::ExporterRef& exporter : manager.GetEncoderList())
        if (exporter->GetDisplayName() == name)
            return exporter;
    return nullptr;
}

// Each test installs what it needs and leaves no list and no warning handler behind.
class EncoderListTest : public ::testing::Test {
protected:
    void SetUp() override {
        Av::SetEncoderPresetWarningHandler(
            [this](const Av::EncoderPresetWarning& warning) { warnings.push_back(warning); });
    }
    void TearDown() override {
        Mid::PresetManager::Install(nullptr);
        Av::SetEncoderPresetWarningHandler(nullptr);
    }

    std::shared_ptr<Mid::PresetManager> ListOver(const std::string& user, const std::string& system) {
        return Av::MakeEncoderList({tree.NativePath(user), tree.NativePath(system)});
    }

    TempTree tree;
    std::vector<Av::EncoderPresetWarning> warnings;
};

TEST_F(EncoderListTest, ShippedPresetsFollowTheirOrderThenFileNames) {
    tree.MakeFile("system/a.igdencoder", Preset("Third", "QuickTime", "encoder=\"prores_ks\""));
    tree.MakeFile("system/b.igdencoder", Preset("Second", "QuickTime", "encoder=\"prores_ks\"", "<order>2</order>"));
    tree.MakeFile("system/c.igdencoder", Preset("First", "QuickTime", "encoder=\"prores_ks\"", "<order>1</order>"));
    tree.MakeFile("system/d.igdencoder", Preset("Fourth", "QuickTime", "encoder=\"prores_ks\""));
    tree.MakeFile("system/e.igdencoder", Preset("Elsewhere", "H.264", "encoder=\"libx264\"", "<order>0</order>"));
    tree.MakeFile("system/notes.txt", "not a preset");
    const auto list = ListOver("user", "system");
    std::vector<Mid::EncoderPresetRef> user;
    std::vector<Mid::EncoderPresetRef> system;
    list->LoadPresets(ExporterNamed(*list, u"QuickTime"), user, system, 0);
    EXPECT_EQ(Names(system), (std::vector<std::string>{"First", "Second", "Third", "Fourth"}));
    EXPECT_TRUE(user.empty());
    // A fresh home has no user folder, which is no fault.
    EXPECT_TRUE(warnings.empty());

    std::vector<Mid::EncoderPresetRef> again;
    list->LoadPresets(ExporterNamed(*list, u"QuickTime"), user, again, 0);
    EXPECT_EQ(again, system) << "unchanged files keep their preset objects";

    list->LoadPresets(nullptr, user, system, 0);
    EXPECT_TRUE(system.empty());
}

TEST_F(EncoderListTest, BrokenFilesAreSkippedAndReportedOnceUntilTheyChange) {
    tree.MakeFile("system/good.igdencoder", Preset("Good", "QuickTime", "encoder=\"prores_ks\""));
    tree.MakeFile("user/truncated.igdencoder", Preset("Cut", "QuickTime", "encoder=\"prores_ks\"").substr(0, 60));
    tree.MakeFile("user/stranger.igdencoder", Preset("Odd", "AVI", "encoder=\"prores_ks\""));
    const auto list = ListOver("user", "system");
    const Mid::ExporterRef quickTime = ExporterNamed(*list, u"QuickTime");
    std::vector<Mid::EncoderPresetRef> user;
    std::vector<Mid::EncoderPresetRef> system;
    list->LoadPresets(quickTime, user, system, 0);
    list->LoadPresets(quickTime, user, system, 0);
    EXPECT_TRUE(user.empty());
    EXPECT_EQ(Names(system), std::vector<std::string>{"Good"});
    ASSERT_EQ(warnings.size(), 2u);
    for (const auto& warning : warnings)
        EXPECT_NE(warning.path.find(tree.NativePath("user")), std::string::npos) << warning.path;

    tree.MakeFile("user/truncated.igdencoder", Preset("Mended", "QuickTime", "encoder=\"prores_ks\" size=\"640x360\""));
    list->LoadPresets(quickTime, user, system, 0);
    EXPECT_EQ(Names(user), std::vector<std::string>{"Mended"});
    EXPECT_EQ(warnings.size(), 2u);

    // A missing folder of shipped presets is a broken installation, said once.
    const auto orphan = ListOver("nobody", "nowhere");
    orphan->LoadPresets(ExporterNamed(*orphan, u"QuickTime"), user, system, 0);
    orphan->LoadPresets(ExporterNamed(*orphan, u"QuickTime"), user, system, 0);
    EXPECT_EQ(warnings.size(), 3u);
    EXPECT_TRUE(system.empty());
}

TEST_F(EncoderListTest, FindEncoderSettingsAnswersFromTheInstalledList) {
    EXPECT_FALSE(Av::FindEncoderSettings(u"QuickTime", u"Apple ProRes 422 Proxy")) << "nothing installed";
    EXPECT_FALSE(Mid::IsKilnInstalled());

    ScopedIgdHome home;
    home.MakeFile("encoder-presets/small.igdencoder",
                  Preset("Small", "QuickTime", "encoder=\"dnxhd\" size=\"640x360\" frameRate=\"25\""));
    Av::InstallEncoderList();
    EXPECT_TRUE(Mid::IsKilnInstalled());

    const auto small = Av::FindEncoderSettings(u"QuickTime", u"Small");
    ASSERT_TRUE(small);
    EXPECT_EQ(small->container, "mov");
    EXPECT_EQ(small->width, 640);
    EXPECT_EQ(small->frameRateNum, 25);
    EXPECT_EQ(small->frameRateDen, 1);

    EXPECT_FALSE(Av::FindEncoderSettings(u"QuickTime", u"No Such Preset"));
    EXPECT_FALSE(Av::FindEncoderSettings(u"AVI", u"Small"));
    EXPECT_FALSE(Av::FindEncoderSettings(u"H.264", u"Small")) << "a preset belongs to its exporter";

    Mid::PresetManager::Install(nullptr);
    EXPECT_FALSE(Mid::IsKilnInstalled());
}

// Units and nested options are where a preset is easiest to misread; sizes and rates are read
// in FindEncoderSettingsAnswersFromTheInstalledList.
TEST(EncoderPresetFile, ReadsBitRatesOptionsAndAudio) {
    const auto read = Av::ParseEncoderPresetDocument(R"(<encoderPreset version="1"><name>DNx</name>
  <exporter>MXF OP1a</exporter>
  <video encoder="dnxhd" bitRate="120M"><option name="bits_per_mb">600</option></video>
  <audio encoder="pcm_s24le" bitRate="1536k" sampleRate="48000"/>
</encoderPreset>)");
    ASSERT_TRUE(read) << read.error;
    const Av::EncoderSettings& settings = read.document->settings;
    EXPECT_EQ(settings.videoBitRate, 120000000);
    EXPECT_EQ(settings.videoOptions, (decltype(settings.videoOptions){{"bits_per_mb", "600"}}));
    EXPECT_EQ(settings.audioEncoder, "pcm_s24le");
    EXPECT_EQ(settings.audioBitRate, 1536000);
    EXPECT_EQ(settings.audioSampleRate, 48000);
}

} // namespace
} // namespace igd::test
