#include <gtest/gtest.h>

#include <limits>

#include "Fnd/WString.h"

using Fnd::FromUTF8;
using Fnd::ToUTF8;
using Fnd::WString;

TEST(UTF8Conversion, RoundTripsEveryPlane) {
    const std::string texts[] = {
        "",
        "clip_0001.MOV",
        "Caf\xC3\xA9",            // U+00E9, two bytes
        "\xE2\x82\xAC 12",        // U+20AC, three bytes
        "\xF0\x9D\x84\x9E music", // U+1D11E, outside the BMP
        "\xF4\x8F\xBF\xBF",       // U+10FFFF, the last code point
        std::string("a\0b", 3),   // NUL is a character like any other
    };
    for (const auto& text : texts) {
        SCOPED_TRACE(text);
        EXPECT_EQ(ToUTF8(FromUTF8(text)), text);
    }
}

TEST(UTF8Conversion, NonBMPCharactersBecomeSurrogatePairs) {
    EXPECT_EQ(FromUTF8("\xF0\x9D\x84\x9E"), WString(u"\xD834\xDD1E"));
    EXPECT_EQ(FromUTF8("\xE2\x82\xAC"), WString(u"\x20AC"));
    EXPECT_EQ(ToUTF8(u"\xD83C\xDFAC"), "\xF0\x9F\x8E\xAC"); // U+1F3AC
}

TEST(UTF8Conversion, InvalidBytesBecomeReplacementCharacters) {
    struct Case {
        std::string utf8;
        WString expected;
    };
    const Case cases[] = {
        {"\xFF", u"\xFFFD"},
        {"a\x80z", u"a\xFFFDz"},                           // stray continuation byte
        {"\xE2\x82", u"\xFFFD"},                           // truncated at the end: one replacement
        {"\xE2\x82z", u"\xFFFDz"},                         // truncated, then resynchronised
        {"\xC0\xAF", u"\xFFFD\xFFFD"},                     // overlong "/" must not sneak through
        {"\xE0\x80\xAF", u"\xFFFD\xFFFD\xFFFD"},           // overlong three-byte form
        {"\xED\xA0\x80", u"\xFFFD\xFFFD\xFFFD"},           // encoded surrogate
        {"\xF4\x90\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD"}, // above U+10FFFF
        {"\xF0\x9F\x8E", u"\xFFFD"},                       // truncated four-byte form
        {"\xC3\xA9\xC3", u"\xE9\xFFFD"},
    };
    for (const auto& c : cases) {
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

TEST(WideStringHelpers, FromASCIIAndToDecimal) {
    EXPECT_EQ(Fnd::FromASCII("Clip 12"), WString(u"Clip 12"));
    EXPECT_EQ(Fnd::FromASCII("\xE9"), WString(u"\xFFFD"));
    EXPECT_EQ(Fnd::ToDecimal(0), WString(u"0"));
    EXPECT_EQ(Fnd::ToDecimal(1200), WString(u"1200"));
    EXPECT_EQ(Fnd::ToDecimal(std::numeric_limits<std::uint64_t>::max()), WString(u"18446744073709551615"));
}

TEST(WideStringHelpers, EqualsIgnoringASCIICaseFoldsOnlyAToZ) {
    EXPECT_TRUE(Fnd::EqualsIgnoringASCIICase(u".MOV", u".mov"));
    EXPECT_TRUE(Fnd::EqualsIgnoringASCIICase(u"", u""));
    EXPECT_FALSE(Fnd::EqualsIgnoringASCIICase(u".mov", u".mo"));
    EXPECT_FALSE(Fnd::EqualsIgnoringASCIICase(u"\xC9", u"\xE9")); // É and é
    EXPECT_FALSE(Fnd::EqualsIgnoringASCIICase(u"[", u"{"));       // differ by the case bit only
    EXPECT_FALSE(Fnd::EqualsIgnoringASCIICase(u"@", u"`"));
}

TEST(WideStringHelpers, TrimRemovesOnlyFromTheEnds) {
    EXPECT_EQ(Fnd::Trim(u"  a b  ", u" "), WString(u"a b"));
    EXPECT_EQ(Fnd::Trim(u"\t. name .\n", u" .\t\n"), WString(u"name"));
    EXPECT_EQ(Fnd::Trim(u"    ", u" "), WString());
    EXPECT_EQ(Fnd::Trim(u" x ", u""), WString(u" x "));
}
