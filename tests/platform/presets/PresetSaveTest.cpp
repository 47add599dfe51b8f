#include <gtest/gtest.h>

#include "Fnd/NullInterfaceException.h"
#include "Fnd/PathUtils.h"
#include "PresetTestSupport.h"
#include "QL/PresetNames.h"
#include "QL/PresetObject.h"

namespace igd::test {
namespace {

using namespace QL;

class PresetSave : public PresetServiceTest {};

TEST_F(PresetSave, ANewManagerOfANewServiceReadsBackTheSameFields) {
    auto manager = Manager();
    auto saved = SaveNew(*manager, u"Day 2",
                         {Field(kQLFieldCustomText, u"Day02_"), Field(kQLFieldIngestDate, u"%Y-%m-%d"),
                          Field(kQLFieldUserDefinedAutoIncrement, u"0001")});
    EXPECT_EQ(saved->GetPath(), Fnd::FromUTF8(UserFile("Day 2.igdrename")));
    EXPECT_TRUE(saved->IsUserPreset());

    auto later = NewService()->InstantiateManager(kQLPresetCategoryRename);
    const auto presets = later->GetUserPresets(false);
    ASSERT_EQ(presets.size(), 1u);
    const auto& read = presets[0];
    EXPECT_EQ(read->GetName(true), u"Day 2");
    EXPECT_EQ(read->GetPath(), saved->GetPath());
    EXPECT_EQ(read->GetPresetID(), PresetObject::IdentityForPath(read->GetPath()));
    EXPECT_EQ(MakePresetDocument(kQLPresetCategoryRename, u"Day 2", read->GetFields()),
              MakePresetDocument(kQLPresetCategoryRename, u"Day 2", saved->GetFields()));
    EXPECT_TRUE(later->GetSystemPresets().empty());
}

TEST_F(PresetSave, AnExistingNameAnswersNameExistsAndLeavesThatFileByteForByte) {
    auto manager = Manager();
    auto saved = SaveNew(*manager, u"Day", {Field(kQLFieldCustomText, u"one")});
    const std::string before = ReadFileBytes(UserFile("Day.igdrename"));

    // Saving as new never replaces, not even the preset's own file.
    saved->SetFields({Field(kQLFieldCustomText, u"changed")});
    EXPECT_EQ(manager->SavePreset(saved, u"Day", u"", false, u"Day"), kPresetNameExists);

    for (const char16_t* name : {u"Day", u"DAY", u"day"}) {
        auto other = manager->CreatePreset();
        other->SetFields({Field(kQLFieldCustomText, u"two")});
        EXPECT_EQ(manager->SavePreset(other, name, u"", false, name), kPresetNameExists) << Fnd::ToUTF8(name);
        EXPECT_EQ(other->GetPath(), u"");
    }
    EXPECT_EQ(ReadFileBytes(UserFile("Day.igdrename")), before);
    EXPECT_EQ(Names(manager->GetUserPresets(false)), (std::vector<std::string>{"Day"}));

    // The name held inside a file of another name is taken too, and a file of that name that
    // cannot be read is never replaced.
    WriteUserFile("copied by hand.igdrename", RenameDocument(u"Roll"));
    const std::string unreadable = WriteUserFile("Take.igdrename", "<preset");
    for (const char16_t* name : {u"Roll", u"Take"})
        EXPECT_EQ(manager->SavePreset(manager->CreatePreset(), name, u"", false, name), kPresetNameExists)
            << Fnd::ToUTF8(name);
    EXPECT_EQ(ReadFileBytes(unreadable), "<preset");
}

// Overwrite rewrites the preset's own file, under its name or a new one, and never another file.
TEST_F(PresetSave, OverwriteRewritesOrMovesThePresetsOwnFileAndNeverReplacesAnother) {
    auto manager = Manager();
    auto day = SaveNew(*manager, u"day", {Field(kQLFieldCustomText, u"one")});
    SaveNew(*manager, u"Roll", {Field(kQLFieldCustomText, u"roll")});
    const std::string rollBytes = ReadFileBytes(UserFile("Roll.igdrename"));

    day->SetFields({Field(kQLFieldFileName, u""), Field(kQLFieldCustomText, u"two")});
    EXPECT_EQ(manager->SavePreset(day, u"roll", u"", true, u"roll"), kPresetNameExists);
    EXPECT_EQ(ReadFileBytes(UserFile("Roll.igdrename")), rollBytes);
    // A change of case only is still the same preset.
    EXPECT_EQ(manager->SavePreset(day, u"Day", u"", true, u"Day"), kPresetOK);
    EXPECT_EQ(day->GetPath(), Fnd::FromUTF8(UserFile("Day.igdrename")));
    EXPECT_FALSE(Fnd::PathUtils::ExistsOnDisk(Fnd::FromUTF8(UserFile("day.igdrename")), false));

    const auto read = NewService()->InstantiateManager(kQLPresetCategoryRename)->GetUserPresets(false);
    EXPECT_EQ(Names(read), (std::vector<std::string>{"Day", "Roll"}));
    ASSERT_EQ(read[0]->GetFields().size(), 2u);
    EXPECT_EQ(read[0]->GetFields()[1]->GetFormat(), u"two");
}

// The dialog's name check asks the same rule before a save, so a name it lets through always
// saves, and one it refuses is refused here too, with nothing written.
TEST_F(PresetSave, TheNameRuleIsTheServicesRule) {
    auto manager = Manager();
    const std::vector<std::pair<Fnd::WString, bool>> names{
        {u"Day 1.v2", true},   {Fnd::WString(240, u'n'), true}, {u"a/b", false},
        {u"a:b", false},       {u"back\\slash", false},         {u"a*b", false},
        {u"a|b", false},       {u"", false},                     {u".hidden", false},
        {u"tab\there", false}, {Fnd::WString(250, u'n'), false},
    };
    for (const auto& [name, usable] : names) {
        SCOPED_TRACE(Fnd::ToUTF8(name));
        EXPECT_EQ(QL::IsUsablePresetName(name, QL::kQLPresetCategoryRename), usable);
        auto preset = manager->CreatePreset();
        preset->SetFields({Field(kQLFieldCustomText, u"x")});
        const QL::QLPresetStatus status = manager->SavePreset(preset, name, u"", false, name);
        EXPECT_EQ(status != kPresetInvalidName, usable);
        EXPECT_EQ(preset->GetPath().empty(), !usable);
    }
}

TEST_F(PresetSave, ContentAFileCannotKeepIsRefused) {
    auto manager = Manager();
    auto preset = manager->CreatePreset();
    preset->SetFields({Field(kQLFieldCustomText, u"bell\u0007")});
    EXPECT_EQ(manager->SavePreset(preset, u"Bell", u"", false, u"Bell"), kPresetInvalidContent);
    preset->SetFields({Field(kQLFieldCustomText, Fnd::WString(1, char16_t(0xD800)))}); // a lone surrogate
    EXPECT_EQ(manager->SavePreset(preset, u"Bell", u"", false, u"Bell"), kPresetInvalidContent);
    preset->SetFields({Field(kQLFieldMetadata, u"x", u"key")});
    EXPECT_EQ(manager->SavePreset(preset, u"Bell", u"", false, u"Bell"), kPresetInvalidContent);
    EXPECT_TRUE(manager->GetUserPresets(false).empty());
    preset->SetFields({Field(kQLFieldCustomText, u"tab\tis fine")});
    EXPECT_EQ(manager->SavePreset(preset, u"Tab", u"", false, u"Tab"), kPresetOK);
}

TEST_F(PresetSave, TypedValuesStayInTheObjectsAndNeverReachTheFile) {
    auto manager = Manager(kQLPresetCategoryMetadata);
    auto preset = SaveNew(*manager, u"Production", {Field(kQLFieldMetadata, u"default", u"scene", true)});
    const std::string bytes = ReadFileBytes(UserFile("Production.igdmetadata", "metadata"));

    manager->GetUserPresets(false)[0]->GetFields()[0]->SetValue(u"typed 14B");
    EXPECT_EQ(manager->GetUserPresets(false)[0]->GetFields()[0]->GetValue(), u"typed 14B");
    EXPECT_EQ(ReadFileBytes(UserFile("Production.igdmetadata", "metadata")), bytes);
    EXPECT_EQ(bytes.find("typed"), std::string::npos);

    const auto fresh = NewService()->InstantiateManager(kQLPresetCategoryMetadata)->GetUserPresets(false);
    ASSERT_EQ(fresh.size(), 1u);
    EXPECT_EQ(fresh[0]->GetFields()[0]->GetValue(), u"default");
    EXPECT_TRUE(fresh[0]->GetFields()[0]->GetRequired());
}

TEST_F(PresetSave, PresetsOfTheOtherCategoryOrNoneAreRefused) {
    auto rename = Manager(kQLPresetCategoryRename);
    auto metadata = Manager(kQLPresetCategoryMetadata);
    EXPECT_EQ(rename->SavePreset(metadata->CreatePreset(), u"M", u"", false, u"M"), kPresetWrongCategory);
    EXPECT_THROW(rename->SavePreset(nullptr, u"M", u"", false, u"M"), Fnd::NullInterfaceException);
}

TEST_F(PresetSave, AUserFolderThatCannotBeMadeAnswersWriteFailed) {
    tree.MakeFile("home/presets/rename", "a file where the folder should be");
    auto preset = Manager()->CreatePreset();
    EXPECT_EQ(Manager()->SavePreset(preset, u"Day", u"", false, u"Day"), kPresetWriteFailed);
    EXPECT_EQ(preset->GetPath(), u"");
    EXPECT_EQ(ReadFileBytes(tree.NativePath("home/presets/rename")), "a file where the folder should be");
}

} // namespace
} // namespace igd::test
