#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "PresetTestSupport.h"

namespace igd::test {
namespace {

using namespace QL;

// The presets an editor finds on day one, read from where this build ships them (the command
// line's tests see them listed by name).
class ShippedPresets : public PresetServiceTest {
protected:
    PresetList System(_QLPresetCategory category) {
        QL::PresetFolders folders = QL::DefaultPresetFolders();
        if (!std::getenv("IGD_SYSTEM_PRESETS")) {
            EXPECT_NE(folders.systemRoot.find("resources/presets"), std::string::npos) << folders.systemRoot;
        }
        folders.userRoot = tree.NativePath("home");
        return QL::FilePresetService(folders).InstantiateManager(category)->GetSystemPresets();
    }
};

TEST_F(ShippedPresets, AreReadableAndUseOnlyChoicesTheDialogOffers) {
    for (const auto category : {kQLPresetCategoryRename, kQLPresetCategoryMetadata})
        for (const auto& preset : System(category)) {
            const std::string name = Fnd::ToUTF8(preset->GetName(true));
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
    EXPECT_TRUE(warnings.empty()) << warnings.front().path << " " << warnings.front().reason;
}

} // namespace
} // namespace igd::test
