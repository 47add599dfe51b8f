#include <gtest/gtest.h>

#include "settings/DestinationSetting.h"
#include "settings/RecentPathList.h"
#include "tests/settings/RecordingPreferences.h"

namespace igd::test {
using namespace IGD;
namespace {

using Paths = std::vector<Fnd::WString>;

TEST(AddPathToMRU, PutsThePathFirstAndLooksAtFourOldPositionsOnly) {
    const Paths full{u"/A", u"/B", u"/C", u"/D", u"/E"};
    const struct {
        const char* name;
        Paths before;
        Fnd::WString added;
        Paths after;
    } cases[] = {
        {"a new path drops the fifth", full, u"/F", {u"/F", u"/A", u"/B", u"/C", u"/D"}},
        {"moving up the third loses the fifth", full, u"/C", {u"/C", u"/A", u"/B", u"/D"}},
        {"the fifth itself moves up", full, u"/E", {u"/E", u"/A", u"/B", u"/C", u"/D"}},
        {"the head again shortens the list", full, u"/A", {u"/A", u"/B", u"/C", u"/D"}},
        {"an empty path changes nothing", full, u"", full},
        {"case counts", {u"/Card"}, u"/card", {u"/card", u"/Card"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        DestinationSetting setting;
        setting.pathsMRU = c.before;
        setting.AddPathToMRU(c.added);
        EXPECT_EQ(setting.pathsMRU, c.after);
    }
}

TEST(RecentPathList, ReadsAtMostFiveSkipsEmptyItemsAndNormalises) {
    const std::string prefix = K("Primary.DestPathMRU");
    const auto item = [&](int n) { return prefix + K("PathsMRUItem") + std::to_string(n); };
    auto preferences = RecordingPreferences::Make();
    preferences->values[prefix + K("PathsMRUCount")] = std::uint32_t{9};
    for (int n = 0; n < 9; ++n)
        preferences->values[item(n)] = "/p" + std::to_string(n) + "//x/";
    preferences->values[item(1)] = "";

    EXPECT_EQ(ReadRecentPathList(*preferences, prefix), (Paths{u"/p0/x", u"/p2/x", u"/p3/x", u"/p4/x"}));
    EXPECT_EQ(preferences->KeysOf(RecordingPreferences::Op::kGet).size(), 6u) << "the count and five items";

    StoreRecentPathList(*preferences, prefix, {u"/x//y/"});
    EXPECT_EQ(preferences->values[prefix + K("PathsMRUCount")], Proj::PreferenceData(std::uint32_t{1}));
    EXPECT_EQ(preferences->values[item(0)], Proj::PreferenceData(std::string("/x/y")));
    // Items past the new count stay, unread.
    EXPECT_EQ(preferences->values[item(8)], Proj::PreferenceData(std::string("/p8//x/")));
}

} // namespace
} // namespace igd::test
