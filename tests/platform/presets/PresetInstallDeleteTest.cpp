#include <gtest/gtest.h>

#include "Fnd/PathUtils.h"
#include "PresetTestSupport.h"

namespace igd::test {
namespace {

using namespace QL;

class PresetInstall : public PresetServiceTest {
protected:
    Fnd::WString Outside(std::string_view fileName, const std::string& bytes) {
        return tree.MakeFile("downloads/" + std::string(fileName), bytes);
    }
};

TEST_F(PresetInstall, CopiesTheFileIntoTheUserFolderAndAnswersTheUserPreset) {
    const Fnd::WString source = Outside("Roll (1).igdrename", RenameDocument(u"Roll"));
    const std::string sourceBytes = ReadFileBytes(Fnd::ToUTF8(source));
    auto installed = Manager()->InstallPreset(source);
    ASSERT_TRUE(installed);
    EXPECT_EQ(installed->GetName(true), u"Roll");
    EXPECT_TRUE(installed->IsUserPreset());
    EXPECT_EQ(installed->GetPath(), Fnd::FromUTF8(UserFile("Roll.igdrename")));
    EXPECT_EQ(ReadFileBytes(Fnd::ToUTF8(source)), sourceBytes);

    const auto listed = Manager()->GetUserPresets(false);
    ASSERT_EQ(listed.size(), 1u);
    EXPECT_EQ(listed[0].get(), installed.get());
    EXPECT_EQ(listed[0]->GetFields()[1]->GetFormat(), u"_x");
}

TEST_F(PresetInstall, TheSamePresetTwiceIsOnePresetAndADifferentOneOfThatNameIsKeptBesideIt) {
    auto manager = Manager();
    auto first = manager->InstallPreset(Outside("a.igdrename", RenameDocument(u"Roll")));
    auto again = manager->InstallPreset(Outside("b.igdrename", RenameDocument(u"Roll")));
    ASSERT_TRUE(first);
    EXPECT_EQ(again.get(), first.get());

    QL::PresetDocument different;
    different.name = u"roll"; // another case is the same name to a user
    different.fields = {{kQLFieldIngestTime, u"", u"%H%M", false}};
    auto second = manager->InstallPreset(Outside("c.igdrename", QL::SerializePresetDocument(different)));
    ASSERT_TRUE(second);
    EXPECT_EQ(second->GetName(true), u"roll (2)");
    auto secondAgain = manager->InstallPreset(Outside("d.igdrename", QL::SerializePresetDocument(different)));
    EXPECT_EQ(secondAgain.get(), second.get());
    EXPECT_EQ(Names(manager->GetUserPresets(false)), (std::vector<std::string>{"Roll", "roll (2)"}));

    // A file already in the user folder stands for itself.
    EXPECT_EQ(manager->InstallPreset(first->GetPath()).get(), first.get());
}

TEST_F(PresetInstall, BadFilesInstallNothingAndSayWhy) {
    QL::PresetDocument metadata;
    metadata.category = kQLPresetCategoryMetadata;
    metadata.name = u"Rights";
    const struct {
        const char* what;
        std::string bytes;
        const char* reason;
    } cases[] = {
        {"other category", QL::SerializePresetDocument(metadata),
         "is a metadata preset, not a rename preset"},
        {"slash in name", RenameDocument(u"a/b"), "cannot name a file: it holds \"/\""},
        {"colon in name", RenameDocument(u"a:b"), "cannot name a file: it holds \":\""},
    };
    for (const auto& bad : cases) {
        warnings.clear();
        const Fnd::WString path = Outside("bad.igdrename", bad.bytes);
        EXPECT_FALSE(Manager()->InstallPreset(path)) << bad.what;
        ASSERT_EQ(warnings.size(), 1u) << bad.what;
        EXPECT_EQ(warnings[0].path, Fnd::ToUTF8(path));
        EXPECT_NE(warnings[0].reason.find(bad.reason), std::string::npos)
            << bad.what << ": " << warnings[0].reason;
        EXPECT_EQ(ReadFileBytes(Fnd::ToUTF8(path)), bad.bytes);
    }
    EXPECT_FALSE(Manager()->InstallPreset(u""));
    EXPECT_FALSE(Fnd::PathUtils::ExistsOnDisk(tree.Path("home/presets/rename"), false));
}

TEST_F(PresetInstall, DeleteRemovesTheFileAndTheListingEntry) {
    auto manager = Manager();
    auto preset = SaveNew(*manager, u"Day", {Field(kQLFieldCustomText, u"x")});
    EXPECT_EQ(manager->DeletePreset(preset), kPresetOK);
    EXPECT_FALSE(Fnd::PathUtils::ExistsOnDisk(preset->GetPath(), false));
    EXPECT_TRUE(Manager()->GetUserPresets(false).empty());
    // The user's wish is met when the file is already gone.
    EXPECT_EQ(manager->DeletePreset(preset), kPresetOK);
}

TEST_F(PresetInstall, DeleteRefusesWhatItCannotOrMustNotRemove) {
    auto manager = Manager();
    EXPECT_EQ(manager->DeletePreset(manager->CreatePreset()), kPresetNotSaved);
    auto metadata = Manager(kQLPresetCategoryMetadata);
    auto other = SaveNew(*metadata, u"Rights", {Field(kQLFieldMetadata, u"", u"creator")});
    EXPECT_EQ(manager->DeletePreset(other), kPresetWrongCategory);
    EXPECT_TRUE(Fnd::PathUtils::ExistsOnDisk(other->GetPath(), false));
    EXPECT_THROW(manager->DeletePreset(nullptr), Fnd::NullInterfaceException);
}

} // namespace
} // namespace igd::test
