// `igd presets` and `igd prefs` as a user meets them: fresh homes, round trips between homes, and
// bad input refused with nothing written.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "apps/igd/IgdCommand.h"
#include "support/TempTree.h"

namespace {

using igd::test::RunIgd;
using igd::test::ShellQuote;

std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// Every file below a folder, so that "nothing written" can be checked whole.
std::vector<std::string> FilesBelow(const std::string& folder) {
    std::vector<std::string> files;
    if (!std::filesystem::exists(folder))
        return files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        files.push_back(entry.path().string());
    return files;
}

class PresetsCommand : public ::testing::Test {
protected:
    igd::test::TempTree tree_;
    std::string first_ = tree_.NativePath("first");
    std::string second_ = tree_.NativePath("second");
};

TEST_F(PresetsCommand, AFreshHomeListsTheSystemPresetsOfBothCategories) {
    const auto run = RunIgd("presets list", first_);
    ASSERT_EQ(run.exitCode, 0) << run.output;
    for (const char* name : {"Date_Counter", "Camera roll", "Shoot day", "Production", "Rights"})
        EXPECT_NE(run.output.find(std::string("  ") + name + "  (system)"), std::string::npos) << name;
    EXPECT_TRUE(FilesBelow(first_ + "/presets").empty()) << "listing wrote into the home";
}

TEST_F(PresetsCommand, ExportedPresetImportsIntoAnotherHomeByteForByte) {
    const std::string file = tree_.NativePath("Production.igdmetadata");
    ASSERT_EQ(RunIgd("presets export Production " + ShellQuote(file), first_).exitCode, 0);
    const auto imported = RunIgd("presets import " + ShellQuote(file), second_);
    ASSERT_EQ(imported.exitCode, 0) << imported.output;

    const std::string installed = second_ + "/presets/metadata/Production.igdmetadata";
    EXPECT_EQ(ReadBytes(installed), ReadBytes(file));
    const auto shown = RunIgd("presets show Production --category metadata", second_);
    EXPECT_NE(shown.output.find("scene"), std::string::npos) << shown.output;
    EXPECT_NE(shown.output.find("required"), std::string::npos) << shown.output;

    // The same preset again stays one preset.
    ASSERT_EQ(RunIgd("presets import " + ShellQuote(file), second_).exitCode, 0);
    EXPECT_EQ(FilesBelow(second_ + "/presets/metadata").size(), 1u);
}

TEST_F(PresetsCommand, BadInputIsRefusedWithItsReasonAndNothingWritten) {
    tree_.MakeFile("empty.igdrename");
    struct Case {
        std::string arguments;
        std::string reason;
    };
    const std::vector<Case> cases{
        {"presets import " + ShellQuote(tree_.NativePath("empty.igdrename")), "the file is empty"},
        {"presets delete 'a/b'", "is not a preset name"},
        {"presets show 'Day:1'", "is not a preset name"},
        {"presets export 'x/y' " + ShellQuote(tree_.NativePath("out.igdrename")), "is not a preset name"},
    };
    for (const Case& c : cases) {
        const auto run = RunIgd(c.arguments, first_);
        EXPECT_NE(run.exitCode, 0) << c.arguments;
        EXPECT_NE(run.output.find(c.reason), std::string::npos) << c.arguments << ": " << run.output;
    }
    EXPECT_TRUE(FilesBelow(first_).empty());
    EXPECT_FALSE(std::filesystem::exists(tree_.NativePath("out.igdrename")));
}

class PrefsCommand : public ::testing::Test {
protected:
    igd::test::TempTree tree_;
    std::string home_ = tree_.NativePath("home");
    const std::string key_ = "IGD.IngestDestinationSettingImpl.RenameApplyScope";
};

TEST_F(PrefsCommand, SetThenGetInANewProcess) {
    ASSERT_EQ(RunIgd("prefs set " + key_ + " 1", home_).exitCode, 0);
    const auto run = RunIgd("prefs get " + key_, home_);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "1\n");
}

TEST_F(PrefsCommand, UnknownKeysWrongKindsAndLockedKeysWriteNothing) {
    tree_.MakeFile("home/site/locked-preferences",
                   "# the site decides\nIGD.IngestDestinationSettingImpl.Local.ImportOnly\n");
    struct Case {
        std::string arguments;
        std::string reason;
    };
    const std::vector<Case> cases{
        {"prefs set Foo.Bar 1", "unknown preference key: Foo.Bar"},
        {"prefs set " + key_ + " abc", "not \"abc\""},
        {"prefs set IGD.IngestDestinationSettingImpl.Local.ImportOnly false", "locked"},
    };
    for (const Case& c : cases) {
        const auto run = RunIgd(c.arguments, home_);
        EXPECT_NE(run.exitCode, 0) << c.arguments;
        EXPECT_NE(run.output.find(c.reason), std::string::npos) << c.arguments << ": " << run.output;
        EXPECT_NE(run.output.find("nothing was written"), std::string::npos) << run.output;
    }
    EXPECT_FALSE(std::filesystem::exists(home_ + "/preferences.db"));
    const auto listing = RunIgd("prefs ls", home_);
    EXPECT_NE(listing.output.find("locked"), std::string::npos) << listing.output;
}

// `igd name` renames with the template the settings store, and only while renaming is on.
TEST_F(PrefsCommand, NameUsesTheStoredRenameTemplateWhileRenamingIsOn) {
    tree_.MakeFile("shoot/A001.MOV", "frames");
    const std::string file = ShellQuote(tree_.NativePath("shoot/A001.MOV"));
    const std::string shown = RunIgd("presets show 'Camera roll'", home_).output;
    const std::string label = "  file:     ";
    const std::size_t at = shown.find(label);
    ASSERT_NE(at, std::string::npos) << shown;
    const std::string presetPath = shown.substr(at + label.size(), shown.find('\n', at) - at - label.size());
    const std::string prefix = "prefs set IGD.IngestDestinationSettingImpl.";
    ASSERT_EQ(RunIgd(prefix + "RenamePresetPath " + ShellQuote(presetPath), home_).exitCode, 0);

    EXPECT_EQ(RunIgd("name " + file, home_).output, "A001.MOV\n");
    ASSERT_EQ(RunIgd(prefix + "EnableRenameTemplate true", home_).exitCode, 0);
    EXPECT_EQ(RunIgd("name " + file, home_).output, "A001_001.MOV\n");
}

} // namespace
