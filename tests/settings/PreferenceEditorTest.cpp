#include <gtest/gtest.h>

#include "IGD/PreferenceEditor.h"
#include "tests/settings/RecordingPreferences.h"

namespace igd::test {
using namespace IGD;
namespace {

TEST(ListPreferences, ExpandsTheBackupsAndListsAsFarAsTheStoredCountsReach) {
    auto preferences = RecordingPreferences::Make();
    preferences->values[K("Local.Backup.Count")] = std::uint32_t{2};
    preferences->values[K("Primary.DestPathMRU") + K("PathsMRUCount")] = std::uint32_t{9};
    preferences->values[K("Local.Backup.Enabled2")] = true;
    preferences->locked = {K("Local.ImportOnly")};

    const auto entries = ListPreferences(*preferences);
    std::vector<std::string> keys;
    for (const auto& entry : entries)
        keys.push_back(entry.key);
    const auto at = [&](const std::string& key) {
        return std::find(keys.begin(), keys.end(), key) - keys.begin();
    };

    // 20 plain keys, the primary's count and 5 items, 2 backups of 5 keys and a count, 7 dialog keys, 4
    // of the media browser.
    EXPECT_EQ(entries.size(), 20u + 6u + 2u * 6u + 7u + 4u);
    EXPECT_LT(at(K("Primary.DestPathMRU") + K("PathsMRUItem4")), at(K("Pimary.NeedSubFolder")));
    EXPECT_LT(at(K("Local.Backup.Count")), at(K("Local.Backup.Enabled1")));
    EXPECT_LT(at(K("Local.Backup.NeedSubFolder1")), at(K("Local.Backup.Enabled2")));
    EXPECT_EQ(entries[at(K("Local.Backup.Enabled2"))].value, Proj::PreferenceData(true));
    EXPECT_TRUE(entries[at(K("Local.ImportOnly"))].locked);
    EXPECT_FALSE(entries[at(K("Local.ImportOnly"))].value);
}

} // namespace
} // namespace igd::test
