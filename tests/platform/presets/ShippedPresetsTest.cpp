#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>

#include "PresetTestSupport.h"

namespace igd::test {
namespace {

using namespace QL;

// The presets an editor finds on day one, read from where this build ships them.
class ShippedPresets : public ::testing::Test {
protected:
    ShippedPresets() {
        QL::SetPresetLoadWarningHandler([this](const QL::PresetLoadWarning& w) { warnings.push_back(w); });
    }
    ~ShippedPresets() override { QL::SetPresetLoadWarningHandler(nullptr); }

    PresetList System(_QLPresetCategory category) {
        QL::PresetFolders folders = QL::DefaultPresetFolders();
        if (!std::getenv("IGD_SYSTEM_PRESETS")) {
            EXPECT_NE(folders.systemRoot.find("resources/presets"), std::string::npos) << folders.systemRoot;
        }
        folders.userRoot = tree.NativePath("home");
        return QL::FilePresetService(folders).InstantiateManager(category)->GetSystemPresets();
    }

    TempTree tree;
    std::vector<QL::PresetLoadWarning> warnings;
};

std::map<std::string, Fnd::InterfaceRef<IQLPreset>> ByName(const PresetList& presets) {
    std::map<std::string, Fnd::InterfaceRef<IQLPreset>> byName;
    for (const auto& preset : presets)
        byName[Fnd::ToUTF8(preset->GetName(true))] = preset;
    return byName;
}

TEST_F(ShippedPresets, RenamePresetsAreReadableAndUseOnlyChoicesTheDialogOffers) {
    auto presets = ByName(System(kQLPresetCategoryRename));
    EXPECT_TRUE(warnings.empty()) << warnings.front().path << " " << warnings.front().reason;
    for (const char* name : {"Date_Counter", "Camera roll", "Shoot day"})
        EXPECT_TRUE(presets.count(name)) << name;
    for (const auto& [name, preset] : presets) {
        EXPECT_FALSE(preset->IsUserPreset()) << name;
        ASSERT_FALSE(preset->GetFields().empty()) << name;
        for (const auto& field : preset->GetFields()) {
            const auto choices = GetPredefinedFieldValues(field->GetType());
            if (!choices.empty()) {
                EXPECT_NE(std::find(choices.begin(), choices.end(), field->GetFormat()), choices.end())
                    << name << ": " << Fnd::ToUTF8(field->GetFormat());
            }
        }
    }
}

TEST_F(ShippedPresets, MetadataPresetsMarkWhatMustBeFilled) {
    auto presets = ByName(System(kQLPresetCategoryMetadata));
    EXPECT_TRUE(warnings.empty());
    ASSERT_TRUE(presets.count("Production"));
    ASSERT_TRUE(presets.count("Rights"));
    // What the required-field check and the command line's --set rely on.
    std::map<std::string, bool> required;
    for (const auto& field : presets["Production"]->GetFields())
        if (field->GetRequired())
            required[Fnd::ToUTF8(field->GetKey())] = true;
    EXPECT_EQ(required, (std::map<std::string, bool>{{"scene", true}, {"take", true}}));
}

} // namespace
} // namespace igd::test
