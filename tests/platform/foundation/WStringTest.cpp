#include <gtest/gtest.h>

#include "Fnd/WString.h"

namespace igd::test {

using Fnd::FromUTF8;
using Fnd::ToUTF8;
using Fnd::WString;
using namespace std::string_literals;

TEST(UTF8Conversion, RoundTripsEveryPlaneWithSurrogatePairsOutsideTheBMP) {
    // Two, three and four bytes; U+10FFFF is the last code point; NUL is a character like any other.
    for (const std::string& text : {""s, "clip_0001.MOV"s, "Caf\xC3\xA9"s, "\xE2\x82\xAC 12"s,
                                    "\xF0\x9D\x84\x9E music"s, "\xF4\x8F\xBF\xBF"s, "a\0b"s}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(ToUTF8(FromUTF8(text)), text);
    }
    EXPECT_EQ(FromUTF8("\xF0\x9D\x84\x9E"), WString(u"\xD834\xDD1E"));
    EXPECT_EQ(ToUTF8(u"\xD83C\xDFAC"), "\xF0\x9F\x8E\xAC"); // U+1F3AC
}

TEST(UTF8Conversion, InvalidBytesBecomeReplacementCharacters) {
    struct Case {
        std::string utf8;
        WString expected;
    };
    // Stray continuation bytes, sequences cut short at the end or before an ASCII byte, overlong forms
    // (an overlong "/" must not sneak through), encoded surrogates and values above U+10FFFF.
    for (const Case& c :
         {Case{"\xFF", u"\xFFFD"}, Case{"a\x80z", u"a\xFFFDz"}, Case{"\xE2\x82", u"\xFFFD"},
          Case{"\xE2\x82z", u"\xFFFDz"}, Case{"\xC0\xAF", u"\xFFFD\xFFFD"},
          Case{"\xE0\x80\xAF", u"\xFFFD\xFFFD\xFFFD"}, Case{"\xED\xA0\x80", u"\xFFFD\xFFFD\xFFFD"},
          Case{"\xF4\x90\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD"}, Case{"\xC3\xA9\xC3", u"\xE9\xFFFD"}}) {
        SCOPED_TRACE(c.utf8);
        EXPECT_EQ(FromUTF8(c.utf8), c.expected);
    }
}

TEST(UTF8Conversion, UnpairedSurrogatesBecomeReplacementCharacters) {
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(ToUTF8(u"\xD800"), replacement);
    EXPECT_EQ(ToUTF8(u"\xDC00x"), replacement + "x");
    EXPECT_EQ(ToUTF8(u"\xD800\xD800\xDC00"), replacement + "\xF0\x90\x80\x80");
}

TEST(WideStringHelpers, CaseFoldingAndTrim) {
    EXPECT_TRUE(Fnd::EqualsIgnoringASCIICase(u".MOV", u".mov"));
    EXPECT_FALSE(Fnd::EqualsIgnoringASCIICase(u".mov", u".mo"));
    EXPECT_FALSE(Fnd::EqualsIgnoringASCIICase(u"\xC9", u"\xE9")); // only A-Z fold, not accented letters
    EXPECT_FALSE(Fnd::EqualsIgnoringASCIICase(u"[", u"{"));       // differ by the case bit only
    EXPECT_FALSE(Fnd::EqualsIgnoringASCIICase(u"@", u"`"));

    EXPECT_EQ(Fnd::Trim(u"\t. a b .\n", u" .\t\n"), WString(u"a b"));
    EXPECT_EQ(Fnd::Trim(u"    ", u" "), WString());
    EXPECT_EQ(Fnd::Trim(u" x ", u""), WString(u" x "));
}

} // namespace igd::test
