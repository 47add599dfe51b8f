#include <gtest/gtest.h>

#include <cstdio>
#include <map>

#include "Fnd/PathUtils.h"
#include "PresetTestSupport.h"
#include "QL/PresetObject.h"
#include "QL/PresetService.h"

namespace igd::test {
namespace {

using namespace QL;

class PresetListing : public PresetServiceTest {};

TEST_F(PresetListing, ManagersOfACategoryShowTheSameObjects) {
    auto first = Manager();
    SaveNew(*first, u"Day", {Field(kQLFieldCustomText, u"Day_")});
    WriteUserFile("Roll.igdrename", RenameDocument(u"Roll"));

    auto a = first->GetUserPresets(false);
    auto b = Manager()->GetUserPresets(false);
    ASSERT_EQ(Names(a), (std::vector<std::string>{"Day", "Roll"}));
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        EXPECT_EQ(a[i].get(), b[i].get());
        EXPECT_EQ(a[i]->GetPresetID(), b[i]->GetPresetID());
    }
    // So a value typed through one manager's preset reaches the session holding another's.
    a[1]->GetFields()[1]->SetValue(u"typed");
    EXPECT_EQ(Manager()->GetUserPresets(false)[1]->GetFields()[1]->GetValue(), u"typed");
}

// Only files of the category's extension, in any case, are presets; half-written temporaries are
// not. They are listed by name, ignoring case.
TEST_F(PresetListing, PresetFilesAreSortedByNameIgnoringCaseAndOtherFilesAreNotPresets) {
    EXPECT_TRUE(Manager(kQLPresetCategoryMetadata)->GetUserPresets(false).empty());
    for (const char16_t* name : {u"beta", u"Alpha", u"gamma"})
        WriteUserFile(Fnd::ToUTF8(name) + ".igdrename", RenameDocument(name));
    WriteUserFile("Beta2.IGDRENAME", RenameDocument(u"Beta2"));
    WriteUserFile("notes.txt", "hello");
    WriteUserFile(".Day.igdrename.A1b2C3", RenameDocument(u"half written"));
    EXPECT_EQ(Names(Manager()->GetUserPresets(false)),
              (std::vector<std::string>{"Alpha", "beta", "Beta2", "gamma"}));
    EXPECT_TRUE(warnings.empty());
}

TEST_F(PresetListing, AFileChangedOnDiskIsReadAgainAndOneRemovedDisappears) {
    const std::string path = WriteUserFile("Roll.igdrename", RenameDocument(u"Roll"));
    auto before = Manager()->GetUserPresets(false);
    ASSERT_EQ(before.size(), 1u);

    WriteUserFile("Roll.igdrename", RenameDocument(u"Roll renamed elsewhere"));
    auto after = Manager()->GetUserPresets(false);
    ASSERT_EQ(after.size(), 1u);
    EXPECT_EQ(after[0]->GetName(true), u"Roll renamed elsewhere");
    EXPECT_EQ(before[0]->GetName(true), u"Roll"); // a holder of the old object keeps what it saw

    ASSERT_EQ(std::remove(path.c_str()), 0);
    EXPECT_TRUE(Manager()->GetUserPresets(false).empty());
}

TEST_F(PresetListing, MalformedFilesAreSkippedReportedOnceAndLeftAsTheyAre) {
    const std::string empty = WriteUserFile("Empty.igdrename", "");
    const std::string truncated = WriteUserFile("Cut.igdrename", RenameDocument(u"Cut").substr(0, 60));
    const std::string wrongFolder = WriteUserFile("Meta.igdrename", [] {
        QL::PresetDocument document;
        document.category = kQLPresetCategoryMetadata;
        document.name = u"Meta";
        return QL::SerializePresetDocument(document);
    }());
    WriteUserFile("Good.igdrename", RenameDocument(u"Good"));
    const std::string cutBytes = ReadFileBytes(truncated);

    EXPECT_EQ(Names(Manager()->GetUserPresets(false)), (std::vector<std::string>{"Good"}));
    EXPECT_EQ(Names(Manager()->GetUserPresets(false)), (std::vector<std::string>{"Good"}));
    ASSERT_EQ(warnings.size(), 3u) << "each broken file is reported once, however often it is listed";
    std::map<std::string, std::string> reasons;
    for (const auto& warning : warnings)
        reasons[warning.path] = warning.reason;
    for (const std::string& path : {empty, truncated, wrongFolder})
        EXPECT_EQ(reasons.count(path), 1u) << path;
    EXPECT_NE(reasons[wrongFolder].find("metadata preset in the folder of rename presets"),
              std::string::npos);

    EXPECT_EQ(ReadFileBytes(truncated), cutBytes);
    EXPECT_TRUE(Fnd::PathUtils::ExistsOnDisk(Fnd::FromUTF8(empty), false));

    // Mended, the file is read and its preset listed.
    WriteUserFile("Cut.igdrename", RenameDocument(u"Cut"));
    EXPECT_EQ(Names(Manager()->GetUserPresets(false)), (std::vector<std::string>{"Cut", "Good"}));
}

TEST_F(PresetListing, AWarningHandlerMayListPresetsItself) {
    WriteUserFile("Bad.igdrename", "");
    WriteUserFile("Good.igdrename", RenameDocument(u"Good"));
    std::vector<std::string> seenByHandler;
    QL::SetPresetLoadWarningHandler(
        [&](const QL::PresetLoadWarning&) { seenByHandler = Names(Manager()->GetUserPresets(false)); });
    EXPECT_EQ(Names(Manager()->GetUserPresets(false)), (std::vector<std::string>{"Good"}));
    EXPECT_EQ(seenByHandler, (std::vector<std::string>{"Good"}));
}

TEST_F(PresetListing, SystemPresetsAreReadOnly) {
    const std::string path =
        Fnd::ToUTF8(tree.MakeFile("system/rename/Shipped.igdrename", RenameDocument(u"Shipped")));
    const std::string bytes = ReadFileBytes(path);
    auto manager = Manager();
    auto system = manager->GetSystemPresets();
    ASSERT_EQ(system.size(), 1u);
    EXPECT_FALSE(system[0]->IsUserPreset());
    EXPECT_TRUE(manager->GetUserPresets(false).empty());

    EXPECT_EQ(manager->SavePreset(system[0], u"Shipped", u"", true, u"Shipped"), kPresetReadOnly);
    EXPECT_EQ(manager->SavePreset(system[0], u"Mine", u"", false, u"Mine"), kPresetReadOnly);
    EXPECT_EQ(manager->DeletePreset(system[0]), kPresetReadOnly);
    EXPECT_EQ(ReadFileBytes(path), bytes);
    // A copy the user edits and saves under a name of their own becomes a user preset.
    auto mine = manager->CreatePreset();
    mine->SetFields(system[0]->ClonePreset(false)->GetFields());
    EXPECT_EQ(manager->SavePreset(mine, u"Mine", u"", false, u"Mine"), kPresetOK);
}

TEST_F(PresetListing, AMissingSystemFolderIsReportedOnceAndListsNothing) {
    QL::FilePresetService broken({tree.NativePath("home/presets"), tree.NativePath("nowhere")});
    auto manager = broken.InstantiateManager(kQLPresetCategoryRename);
    EXPECT_TRUE(manager->GetSystemPresets().empty());
    EXPECT_TRUE(manager->GetSystemPresets().empty());
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_EQ(warnings[0].path, tree.NativePath("nowhere/rename"));
}

TEST(PresetServiceSlot, WithoutAServiceThereIsNoManagerAndWithOneEachCategoryHasItsOwn) {
    QL::SetPresetService(nullptr);
    EXPECT_FALSE(QL::InstantiateQLPresetManager(kQLPresetCategoryRename));

    TempTree tree;
    QL::SetPresetService(std::make_shared<QL::FilePresetService>(
        QL::PresetFolders{tree.NativePath("user"), tree.NativePath("system")}));
    for (const auto category : {kQLPresetCategoryRename, kQLPresetCategoryMetadata})
        EXPECT_EQ(QL::InstantiateQLPresetManager(category)->GetCategory(), category);
    EXPECT_FALSE(QL::InstantiateQLPresetManager(static_cast<_QLPresetCategory>(5)));
    QL::SetPresetService(nullptr);
}

} // namespace
} // namespace igd::test
