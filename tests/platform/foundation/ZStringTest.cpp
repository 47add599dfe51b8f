#include <gtest/gtest.h>

#include "fluxcore/ConfigError.h"
#include "fluxcore/Localizer.h"
#include "fluxcore/ZString.h"
#include "support/TempTree.h"

namespace igd::test {

using fluxcore::Localize;
using fluxcore::ZString;
using fluxcore::config::Localizer;
using Fnd::WString;

class LocalizedTextTest : public ::testing::Test {
protected:
    void SetUp() override { Localizer::Get().Clear(); }
    void TearDown() override { Localizer::Get().Clear(); }
};

TEST_F(LocalizedTextTest, SplitsKeyAndDefaultAtTheFirstEqualsAndReplacesPlaceholdersInOnePass) {
    EXPECT_EQ(ZString("$$$/IGD/Summary/Ratio=a=b").Key(), "$$$/IGD/Summary/Ratio");
    EXPECT_EQ(ZString("Ingest").ToWString(), WString(u"Ingest"));
    EXPECT_EQ(ZString("$$$/IGD/Missing/Text").ToWString(), WString(u"$$$/IGD/Missing/Text"));
    EXPECT_EQ(Localize("$$$/IGD/Copy=Copy @0 to @1.", {u"clip.MOV", u"/media"}),
              WString(u"Copy clip.MOV to /media."));
    EXPECT_EQ(Localize("$$$/IGD/Two=a=b^nSecond"), WString(u"a=b\nSecond"));
    // An argument's own text is never read as placeholders or breaks.
    EXPECT_EQ(Localize("$$$/IGD/Args=@0|@1", {u"@1^n", u"x"}), WString(u"@1^n|x"));
    // Missing arguments and lone markers stay as written.
    EXPECT_EQ(Localize("$$$/IGD/Few=@0 @2 @a ^x @", {u"one"}), WString(u"one @2 @a ^x @"));
    EXPECT_EQ(Localize("$$$/IGD/End=ends with ^"), WString(u"ends with ^"));
    EXPECT_EQ(Localize("$$$/IGD/Utf8=Caf\xC3\xA9 \xF0\x9F\x8E\xAC"), WString(u"Caf\xE9 \xD83C\xDFAC"));
}

TEST_F(LocalizedTextTest, LoadsACatalogueFile) {
    TempTree folder;
    // A byte-order mark, a comment, a Windows line end, a line of no key, and a value with "=".
    folder.MakeFile("de.txt", "\xEF\xBB\xBF$$$/IGD/Title=Aufnahme\n# a comment\n\n$$$/IGD/Windows=Zeile\r\n"
                              "not a catalogue line=ignored\n$$$/IGD/Formula=a=b \xC3\xA4\n");
    Localizer::Get().SetTranslation("$$$/IGD/Stale", u"replaced by the load");
    ASSERT_TRUE(Localizer::Get().LoadCatalogue(folder.NativePath("de.txt")));

    EXPECT_EQ(Localize("$$$/IGD/Title=Ingest"), WString(u"Aufnahme"));
    EXPECT_EQ(Localize("$$$/IGD/Windows=Line"), WString(u"Zeile"));
    EXPECT_EQ(Localize("$$$/IGD/Formula=x"), WString(u"a=b \xE4"));
    EXPECT_FALSE(Localizer::Get().Lookup("not a catalogue line"));
    EXPECT_FALSE(Localizer::Get().Lookup("$$$/IGD/Stale"));

    EXPECT_FALSE(Localizer::Get().LoadCatalogue(folder.NativePath("missing.txt")));
    EXPECT_EQ(Localize("$$$/IGD/Title=Ingest"), WString(u"Aufnahme"));
}

TEST_F(LocalizedTextTest, TranslationOverridesTheDefaultInTextsAndErrors) {
    Localizer::Get().SetTranslation("$$$/IGD/Copy", u"Kopiere @0^nnach @1");
    EXPECT_EQ(Localize("$$$/IGD/Copy=Copy @0 to @1", {u"a", u"b"}), WString(u"Kopiere a\nnach b"));
    EXPECT_EQ(Localize("$$$/IGD/Other=Other"), WString(u"Other"));

    Localizer::Get().SetTranslation("$$$/fluxcore/utility/Error/Conversion", u"Ung\xFCltige Umwandlung");
    try {
        fluxcore::config::ThrowError("$$$/fluxcore/utility/Error/Conversion=Invalid type conversion.");
        FAIL() << "ThrowError returned";
    } catch (const fluxcore::config::Error& error) {
        EXPECT_EQ(error.Key(), "$$$/fluxcore/utility/Error/Conversion");
        EXPECT_EQ(error.Text(), WString(u"Ung\xFCltige Umwandlung"));
        EXPECT_STREQ(error.what(), "Ung\xC3\xBCltige Umwandlung");
    }
}

} // namespace igd::test
