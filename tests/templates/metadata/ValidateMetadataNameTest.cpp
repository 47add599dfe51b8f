// Which keys and metadata preset names a user may save, and the box that says why not.
#include <gtest/gtest.h>

#include <string>

#include "support/ScriptedInteractionDriver.h"
#include "templates/metadata/ValidateMetadataName.h"

namespace igd::test {
namespace {

constexpr char16_t kFieldTitle[] = u"Invalid Metadata Field Name";
constexpr char16_t kPresetTitle[] = u"Invalid Metadata Preset Name";

struct NameCase {
    std::u16string name;
    bool isPresetName;
    std::u16string text; // of the box; empty when the name passes
};

TEST(ValidateMetadataName, RefusesWithTheBoxOfTheFirstRuleBroken) {
    const NameCase cases[] = {
        {u"1take", false, u"The first character of the field name cannot be a number."},
        {u"1day", true, u"The first character of the metadata preset name cannot be a number."},
        {u"\u0663takes", false, {}}, // an Arabic-Indic three: only ASCII digits count
        {u"-take", false, u"The first character of the field name is an invalid character."},
        {u".crew", true, u"The first character of the metadata preset name is an invalid character."},
        {u"9-take", false, u"The first character of the field name cannot be a number."},
        {u"-take@", false, u"The first character of the field name is an invalid character."},
        {u"camera operator", false, u"Field names contain invalid character."},
        {u"Crew list", true, u"Metadata preset name contains an invalid character."},
        {u"a-b.c_d|e\"f", false, {}},
        {u"Kamera\u00fcberblick", true, {}},
        {u"\u5834\u9762", false, {}},
        {u"take9", false, {}},
        {u"", false, {}},
    };
    for (const NameCase& each : cases) {
        SCOPED_TRACE(Fnd::ToUTF8(each.name));
        ScopedInteractionDriver ui;
        if (!each.text.empty())
            ui->QueueBoxAnswer(0);
        EXPECT_EQ(IGD::ValidateMetadataName(each.name, nullptr, each.isPresetName), each.text.empty());
        if (each.text.empty())
            continue;
        ASSERT_EQ(ui->Boxes().size(), 1u);
        EXPECT_EQ(ui->Boxes()[0].title, each.isPresetName ? kPresetTitle : kFieldTitle);
        EXPECT_EQ(ui->Boxes()[0].text, each.text);
    }
}

TEST(ValidateMetadataName, EveryOneOfTheTwentyNineForbiddenCharactersIsRefusedAnywhere) {
    const std::u16string forbidden = u" \t<>/\\?@#$~!%^&*():;'[]{}`=+,";
    ASSERT_EQ(forbidden.size(), 29u);
    for (const char16_t bad : forbidden) {
        for (const std::u16string& name : {u"take" + std::u16string(1, bad), std::u16string(1, bad) + u"take"}) {
            SCOPED_TRACE(Fnd::ToUTF8(name));
            ScopedInteractionDriver ui;
            ui->QueueBoxAnswer(0);
            EXPECT_FALSE(IGD::ValidateMetadataName(name, nullptr, false));
            ASSERT_EQ(ui->Boxes().size(), 1u);
            EXPECT_EQ(ui->Boxes()[0].text, u"Field names contain invalid character.");
        }
    }
    // Every other printable ASCII character is allowed inside a name.
    for (char16_t good = u'!'; good <= u'~'; ++good) {
        if (forbidden.find(good) != std::u16string::npos)
            continue;
        ScopedInteractionDriver ui;
        EXPECT_TRUE(IGD::ValidateMetadataName(u"a" + std::u16string(1, good), nullptr, true))
            << static_cast<char>(good);
    }
}

} // namespace
} // namespace igd::test
