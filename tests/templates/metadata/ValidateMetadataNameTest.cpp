// Which keys and metadata preset names a user may save, and the box that says why not.
#include <gtest/gtest.h>

#include <string>

#include "support/ScriptedInteractionDriver.h"
#include "templates/metadata/ValidateMetadataName.h"

namespace igd::test {
namespace {

// The name passes when box is empty; otherwise it is refused with that text under the kind's title.
void ExpectBox(const std::u16string& name, bool isPresetName, const std::u16string& box) {
    SCOPED_TRACE(Fnd::ToUTF8(name));
    ScopedInteractionDriver ui;
    if (!box.empty())
        ui->QueueBoxAnswer(0);
    EXPECT_EQ(IGD::ValidateMetadataName(name, nullptr, isPresetName), box.empty());
    ASSERT_EQ(ui->Boxes().size(), box.empty() ? 0u : 1u);
    if (!box.empty()) {
        EXPECT_EQ(ui->Boxes()[0].title,
                  isPresetName ? u"Invalid Metadata Preset Name" : u"Invalid Metadata Field Name");
        EXPECT_EQ(ui->Boxes()[0].text, box);
    }
}

TEST(ValidateMetadataName, RefusesWithTheBoxOfTheFirstRuleBroken) {
    const struct {
        std::u16string name;
        bool isPresetName;
        std::u16string box;
    } cases[] = {
        {u"1take", false, u"The first character of the field name cannot be a number."},
        {u"1day", true, u"The first character of the metadata preset name cannot be a number."},
        {u"\u0663takes", false, {}}, // an Arabic-Indic three: only ASCII digits count
        {u"-take", false, u"The first character of the field name is an invalid character."},
        {u".crew", true, u"The first character of the metadata preset name is an invalid character."},
        {u"9-take", false, u"The first character of the field name cannot be a number."},
        {u"Crew list", true, u"Metadata preset name contains an invalid character."},
        {u"a-b.c_d|e\"f9", false, {}},
        {u"Kamera\u00fcberblick", true, {}},
        {u"\u5834\u9762", false, {}},
        {u"", false, {}},
    };
    for (const auto& each : cases)
        ExpectBox(each.name, each.isPresetName, each.box);
}

TEST(ValidateMetadataName, ExactlyTheTwentyNineForbiddenCharactersAreRefused) {
    const std::u16string forbidden = u" \t<>/\\?@#$~!%^&*():;'[]{}`=+,";
    ASSERT_EQ(forbidden.size(), 29u);
    for (const char16_t bad : forbidden)
        ExpectBox(u"take" + std::u16string(1, bad), false, u"Field names contain invalid character.");
    for (char16_t good = u'!'; good <= u'~'; ++good) {
        if (forbidden.find(good) == std::u16string::npos)
            ExpectBox(u"a" + std::u16string(1, good), true, {});
    }
}

} // namespace
} // namespace igd::test
