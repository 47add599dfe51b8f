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

    // 20 plain keys, the primary's count and 5 items, 2 backups of 5 keys and a count, 7 dialog keys.
    EXPECT_EQ(entries.size(), 20u + 6u + 2u * 6u + 7u);
    EXPECT_LT(at(K("Primary.DestPathMRU") + K("PathsMRUItem4")), at(K("Pimary.NeedSubFolder")));
    EXPECT_LT(at(K("Local.Backup.Count")), at(K("Local.Backup.Enabled1")));
    EXPECT_LT(at(K("Local.Backup.NeedSubFolder1")), at(K("Local.Backup.Enabled2")));
    EXPECT_EQ(entries[at(K("Local.Backup.Enabled2"))].value, Proj::PreferenceData(true));
    EXPECT_TRUE(entries[at(K("Local.ImportOnly"))].locked);
    EXPECT_FALSE(entries[at(K("Local.ImportOnly"))].value);
}

TEST(PreferenceEditor, GetAnswersTheStoredValueElseTheDefault) {
    auto preferences = RecordingPreferences::Make();
    preferences->values[K("Local.VerifyOption")] = std::uint32_t{2};
    EXPECT_EQ(GetPreferenceText(*preferences, K("Local.VerifyOption")).text, "2");
    EXPECT_EQ(GetPreferenceText(*preferences, K("TransferSectionOpened")).text, "true");
    EXPECT_EQ(GetPreferenceText(*preferences, "IngestDialog.mainDialog.Top").text,
              "(default: computed from the main window)");
    EXPECT_EQ(GetPreferenceText(*preferences, "No.Such.Key").text, "unknown preference key: No.Such.Key");
}

TEST(PreferenceEditor, SetRefusesBadInputWithItsReasonAndWritesNothing) {
    auto preferences = RecordingPreferences::Make();
    preferences->locked = {K("Local.ImportOnly")};
    const struct {
        std::string key;
        const char* value;
        std::string message;
    } cases[] = {
        {"IGD.Nothing", "true", "unknown preference key: IGD.Nothing; nothing was written"},
        {K("Local.Backup.Enabled01"), "true",
         "unknown preference key: " + K("Local.Backup.Enabled01") + "; nothing was written"},
        {K("Local.Backup.DestPathMRU") + K("PathsMRUCount"), "1",
         "unknown preference key: " + K("Local.Backup.DestPathMRU") + K("PathsMRUCount") + "; nothing was written"},
        {K("Local.Backup.Count"), "-1",
         K("Local.Backup.Count") +
             " holds uint32 (a whole number from 0 to 4294967295), not \"-1\"; nothing was written"},
        {K("EnableRenameTemplate"), "yes",
         K("EnableRenameTemplate") + " holds bool (true or false), not \"yes\"; nothing was written"},
        {K("Local.VerifyChecksum"), "XXH128",
         K("Local.VerifyChecksum") + " holds one of md5, xxh128, xxh3, xxh64, not \"XXH128\"; nothing was written"},
        {K("Local.ImportOnly"), "false",
         K("Local.ImportOnly") + " is locked by the administrator (listed in /etc/igd/locked-preferences); "
                                 "nothing was written"},
    };
    for (const auto& c : cases) {
        const auto result =
            SetPreferenceFromText(*preferences, c.key, c.value, "/etc/igd/locked-preferences");
        EXPECT_FALSE(result.ok);
        EXPECT_EQ(result.text, c.message);
    }
    EXPECT_TRUE(preferences->KeysOf(RecordingPreferences::Op::kSet).empty());

    EXPECT_TRUE(SetPreferenceFromText(*preferences, "IngestDialog.mainDialog.Left", "-40").ok);
    EXPECT_TRUE(SetPreferenceFromText(*preferences, K("Local.VerifyChecksum"), "xxh3").ok);
    EXPECT_EQ(preferences->values[K("Local.VerifyChecksum")], Proj::PreferenceData(std::string("xxh3")));
    EXPECT_EQ(preferences->values["IngestDialog.mainDialog.Left"], Proj::PreferenceData(std::int32_t{-40}));
    EXPECT_TRUE(SetPreferenceFromText(*preferences, "IGD.IngestTask.KeepTranscodeState", "true").ok);
    EXPECT_EQ(preferences->values["IGD.IngestTask.KeepTranscodeState"], Proj::PreferenceData(true));
}

} // namespace
} // namespace igd::test
