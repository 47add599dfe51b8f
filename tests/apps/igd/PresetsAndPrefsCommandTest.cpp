// `igd presets`, `igd prefs` and `igd name` as a user meets them: fresh homes, round trips between
// homes, and bad input refused with nothing written.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "apps/igd/IgdCommand.h"

namespace igd::test {
namespace {

// Every file below a folder, so that "nothing written" can be checked whole.
std::vector<std::string> FilesBelow(const std::string& folder) {
    std::vector<std::string> files;
    if (std::filesystem::exists(folder))
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
            files.push_back(entry.path().string());
    return files;
}

class PresetsAndPrefsCommandTest : public IgdCommandTest {
protected:
    // Each command must fail, saying its reason.
    void ExpectRefused(const std::vector<std::pair<std::vector<std::string>, std::string>>& cases) {
        for (const auto& [arguments, reason] : cases) {
            const Ran run = RunIgd(arguments);
            SCOPED_TRACE(arguments[0] + " " + arguments[1] + " " + arguments[2]);
            EXPECT_NE(run.exitCode, 0);
            EXPECT_NE(run.err.find(reason), std::string::npos) << run.err;
        }
    }
    const std::string scopeKey_ = "IGD.IngestDestinationSettingImpl.RenameApplyScope";
};

TEST_F(PresetsAndPrefsCommandTest, AFreshHomeListsTheSystemPresetsOfBothCategories) {
    const Ran run = RunIgd({"presets", "list"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    for (const char* name : {"Date_Counter", "Camera roll", "Shoot day", "Production", "Rights"})
        EXPECT_NE(run.out.find(std::string("  ") + name + "  (system)"), std::string::npos) << name;
    EXPECT_TRUE(FilesBelow(home.Path() + "/presets").empty()) << "listing wrote into the home";
}

TEST_F(PresetsAndPrefsCommandTest, ExportedPresetImportsIntoAnotherHomeByteForByte) {
    const std::string file = Native("Production.igdmetadata");
    ASSERT_EQ(RunIgd({"presets", "export", "Production", file}).exitCode, 0);
    ScopedIgdHome second;
    const Ran imported = RunIgd({"presets", "import", file});
    ASSERT_EQ(imported.exitCode, 0) << imported.err;

    EXPECT_EQ(ReadFileBytes(second.Path() + "/presets/metadata/Production.igdmetadata"), ReadFileBytes(file));
    const Ran shown = RunIgd({"presets", "show", "Production", "--category", "metadata"});
    EXPECT_NE(shown.out.find("scene"), std::string::npos) << shown.out;
    EXPECT_NE(shown.out.find("required"), std::string::npos) << shown.out;

    // The same preset again stays one preset.
    ASSERT_EQ(RunIgd({"presets", "import", file}).exitCode, 0);
    EXPECT_EQ(FilesBelow(second.Path() + "/presets/metadata").size(), 1u);
}

TEST_F(PresetsAndPrefsCommandTest, BadPresetInputIsRefusedWithItsReasonAndNothingWritten) {
    tree.MakeFile("empty.igdrename");
    ExpectRefused({{{"presets", "import", Native("empty.igdrename")}, "the file is empty"},
                   {{"presets", "delete", "a/b"}, "is not a preset name"},
                   {{"presets", "show", "Day:1"}, "is not a preset name"},
                   {{"presets", "export", "x/y", Native("out.igdrename")}, "is not a preset name"}});
    EXPECT_TRUE(FilesBelow(home.Path()).empty());
    EXPECT_FALSE(std::filesystem::exists(Native("out.igdrename")));
}

// A metadata preset file is held to the keys and names the dialog would save; rename presets are not.
TEST_F(PresetsAndPrefsCommandTest, ImportRefusesMetadataKeysAndNamesTheDialogWouldRefuse) {
    const auto file = [&](const std::string& category, const std::string& name,
                          const std::vector<std::string>& keys) {
        std::string xml = "<?xml version=\"1.0\"?><preset category=\"" + category +
                          "\" schema=\"igd.preset\" version=\"1\"><name>" + name + "</name>";
        for (const std::string& key : keys)
            xml += "<field type=\"" + std::string(category == "rename" ? "customText" : "metadata") +
                   "\" required=\"false\"><key>" + key + "</key><format>v</format></field>";
        return Fnd::ToUTF8(tree.MakeFile(name + ".igd" + category, xml + "</preset>"));
    };
    const struct {
        std::string category, name;
        std::vector<std::string> keys;
        std::string refusal; // empty: imported
    } cases[] = {
        {"metadata", "Crew", {"scene", "1take"}, "The first character of the field name cannot be a number."},
        {"metadata", "Crew", {"take", " take"}, "may not contain multiple fields with the same name."},
        {"metadata", "Crew list", {"scene"}, "Metadata preset name contains an invalid character."},
        // Keys are compared trimmed but case matters; a keyless field is no key at all.
        {"metadata", "Crew_2", {"Take", "take", "scene ", "  "}, ""},
        {"rename", "Day one", {""}, ""},
    };
    for (const auto& each : cases) {
        const std::string path = file(each.category, each.name, each.keys);
        SCOPED_TRACE(path);
        const Ran run = RunIgd({"presets", "import", path});
        if (each.refusal.empty()) {
            EXPECT_EQ(run.exitCode, 0) << run.err;
            EXPECT_TRUE(std::filesystem::exists(home.Path() + "/presets/" + each.category + "/" + each.name +
                                                ".igd" + each.category));
            continue;
        }
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(run.err.rfind("igd: cannot import \"" + path + "\": ", 0), 0u) << run.err;
        EXPECT_NE(run.err.find(each.refusal), std::string::npos) << run.err;
        EXPECT_TRUE(FilesBelow(home.Path() + "/presets/metadata").empty());
    }
}

// A value set is read in the next process; a key never set reads as its default.
TEST_F(PresetsAndPrefsCommandTest, APreferenceSetIsReadInTheNextProcess) {
    EXPECT_EQ(RunIgd({"prefs", "get", "IngestDialog.mainDialog.Top"}).out, "(default: computed from the main window)\n");
    EXPECT_EQ(RunIgd({"prefs", "get", "IGD.IngestDestinationSettingImpl.TransferSectionOpened"}).out, "true\n");
    for (const auto& [key, value] : {std::pair<std::string, std::string>{scopeKey_, "1"},
                                     {"IngestDialog.mainDialog.Left", "-40"},
                                     {"IGD.IngestDestinationSettingImpl.Local.VerifyChecksum", "xxh3"},
                                     {"IGD.IngestTask.KeepTranscodeState", "true"}}) {
        ASSERT_EQ(RunIgd({"prefs", "set", key, value}).exitCode, 0) << key;
        const Ran run = RunIgd({"prefs", "get", key});
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.out, value + "\n");
    }
}

TEST_F(PresetsAndPrefsCommandTest, UnknownKeysWrongKindsAndLockedKeysWriteNothing) {
    const std::string k = "IGD.IngestDestinationSettingImpl.";
    const std::string lockFile = home.Path() + "/site/locked-preferences";
    std::filesystem::create_directories(home.Path() + "/site");
    std::ofstream(lockFile) << "# the site decides\n" << k << "Local.ImportOnly\n";
    const struct {
        std::string key, value, reason;
    } cases[] = {
        {"Foo.Bar", "1", "unknown preference key: Foo.Bar"},
        {k + "Local.Backup.Enabled01", "true", "unknown preference key: " + k + "Local.Backup.Enabled01"},
        {k + "Local.Backup.DestPathMRU" + k + "PathsMRUCount", "1",
         "unknown preference key: " + k + "Local.Backup.DestPathMRU" + k + "PathsMRUCount"},
        {k + "Local.Backup.Count", "-1",
         k + "Local.Backup.Count holds uint32 (a whole number from 0 to 4294967295), not \"-1\""},
        {k + "EnableRenameTemplate", "yes", k + "EnableRenameTemplate holds bool (true or false), not \"yes\""},
        {k + "Local.VerifyChecksum", "XXH128",
         k + "Local.VerifyChecksum holds one of md5, xxh128, xxh3, xxh64, not \"XXH128\""},
        {k + "Local.ImportOnly", "false",
         k + "Local.ImportOnly is locked by the administrator (listed in " + lockFile + ")"},
    };
    for (const auto& c : cases) {
        const Ran run = RunIgd({"prefs", "set", c.key, c.value});
        EXPECT_EQ(run.exitCode, 1) << c.key;
        EXPECT_EQ(run.err, "igd: " + c.reason + "; nothing was written\n");
    }
    EXPECT_FALSE(std::filesystem::exists(home.Path() + "/preferences.db"));
    EXPECT_NE(RunIgd({"prefs", "ls"}).out.find("locked"), std::string::npos);
}

// `igd name` and `igd ingest` rename with the template the settings store, and only while renaming is on.
TEST_F(PresetsAndPrefsCommandTest, NameAndIngestUseTheStoredRenameTemplateWhileRenamingIsOn) {
    const std::string file = Fnd::ToUTF8(tree.MakeFile("shoot/A001.MOV", "frames"));
    const std::string shown = RunIgd({"presets", "show", "Camera roll"}).out;
    const std::string label = "  file:     ";
    const std::size_t at = shown.find(label);
    ASSERT_NE(at, std::string::npos) << shown;
    const std::string presetPath = shown.substr(at + label.size(), shown.find('\n', at) - at - label.size());
    const std::string prefix = "IGD.IngestDestinationSettingImpl.";
    ASSERT_EQ(RunIgd({"prefs", "set", prefix + "RenamePresetPath", presetPath}).exitCode, 0);

    EXPECT_EQ(RunIgd({"name", file}).out, "A001.MOV\n");
    ASSERT_EQ(RunIgd({"prefs", "set", prefix + "EnableRenameTemplate", "true"}).exitCode, 0);
    EXPECT_EQ(RunIgd({"name", file}).out, "A001_001.MOV\n");
    // An ingest without a template of its own renames as the dialog would.
    const std::string destination = Fnd::ToUTF8(tree.MakeFolder("out"));
    ASSERT_EQ(RunIgd({"ingest", file, "--to", destination}).exitCode, 0);
    EXPECT_TRUE(std::filesystem::exists(destination + "/A001_001.MOV"));
}

} // namespace
} // namespace igd::test
