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

// Names on disk are bytes: whatever they hold must reach the same file again.
TEST(UTF8Conversion, BytesThatAreNoCharacterAreKeptAndComeBackExactly) {
    struct Case {
        std::string bytes;
        WString expected;
    };
    // Latin-1, stray continuation bytes, sequences cut short at the end or before an ASCII byte or
    // before a good character, overlong forms (an overlong "/" must not sneak through), encoded
    // surrogates (which must not pass for kept bytes) and values above U+10FFFF.
    for (const Case& c :
         {Case{"\xFF", u"\xDCFF"}, Case{"\xE9t\xE9.mov", u"\xDCE9t\xDCE9.mov"}, Case{"a\x80z", u"a\xDC80z"},
          Case{"\xE2\x82", u"\xDCE2\xDC82"}, Case{"\xE2\x82z", u"\xDCE2\xDC82z"},
          Case{"\xE2\xC3\xA9", u"\xDCE2\xE9"}, Case{"\xC0\xAF", u"\xDCC0\xDCAF"},
          Case{"\xED\xB3\xBF", u"\xDCED\xDCB3\xDCBF"}, Case{"\xF4\x90\x80\x80", u"\xDCF4\xDC90\xDC80\xDC80"},
          Case{"\xC3\xA9\xC3", u"\xE9\xDCC3"}}) {
        SCOPED_TRACE(c.bytes);
        EXPECT_EQ(FromUTF8(c.bytes), c.expected);
        EXPECT_EQ(ToUTF8(FromUTF8(c.bytes)), c.bytes);
    }
    // Every byte alone and after each other byte, so no pair of bytes is lost or merged.
    for (int first = 0; first < 256; ++first)
        for (int second = 0x80; second < 256; ++second) {
            const std::string bytes{static_cast<char>(first), static_cast<char>(second), 'x'};
            ASSERT_EQ(ToUTF8(FromUTF8(bytes)), bytes) << first << " " << second;
        }
}

TEST(UTF8Conversion, SurrogatesThatHoldNoByteBecomeReplacementCharacters) {
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(ToUTF8(u"\xD800"), replacement);
    EXPECT_EQ(ToUTF8(u"\xDC00x"), replacement + "x");
    EXPECT_EQ(ToUTF8(u"\xDD00"), replacement);
    EXPECT_EQ(ToUTF8(u"\xD800\xD800\xDC00"), replacement + "\xF0\x90\x80\x80");
    // A kept byte after a real pair is still the byte.
    EXPECT_EQ(ToUTF8(u"\xD83C\xDFAC\xDCFF"), "\xF0\x9F\x8E\xAC\xFF");
}

// Shown or written into a text format, the same names are well-formed and say which byte they hold.
TEST(UTF8Conversion, ValidAndDisplayTextEscapeKeptBytesAndDisplayEscapesControls) {
    struct Case {
        std::string bytes, valid, display;
    };
    for (const Case& c : {Case{"bad\xFF.mov", "bad\\xff.mov", "bad\\xff.mov"},
                          Case{"\xE9t\xE9.mov", "\\xe9t\\xe9.mov", "\\xe9t\\xe9.mov"},
                          Case{"Caf\xC3\xA9 \xF0\x9F\x8E\xAC", "Caf\xC3\xA9 \xF0\x9F\x8E\xAC", "Caf\xC3\xA9 \xF0\x9F\x8E\xAC"},
                          Case{"two\nlines\r\t.mov", "two\nlines\r\t.mov", "two\\nlines\\r\\t.mov"},
                          Case{"bell\a\x1b\x7f", "bell\a\x1b\x7f", "bell\\x07\\x1b\\x7f"},
                          Case{"-rf.mov", "-rf.mov", "-rf.mov"}}) {
        SCOPED_TRACE(c.bytes);
        const WString wide = FromUTF8(c.bytes);
        EXPECT_EQ(Fnd::ToValidUTF8(wide), c.valid);
        EXPECT_EQ(Fnd::ToDisplayUTF8(wide), c.display);
    }
    EXPECT_EQ(Fnd::ToDisplayUTF8(u"\xD800x"), "\xEF\xBF\xBDx");
}

TEST(WideStringHelpers, CaseFoldingAndTrim) {
    EXPECT_TRUE(Fnd::EqualsIgnoringASCIICase(u".MOV", u".mov"));
    EXPECT_FALSE(Fnd::EqualsIgnoringASCIICase(u".mov", u".mo"));
    EXPECT_FALSE(Fnd::EqualsIgnoringASCIICase(u"\xC9", u"\xE9")); // only A-Z fold, not accented letters
    EXPECT_EQ(Fnd::ToLowerASCII(u"Day \xC9_A"), u"day \xC9_a");
    EXPECT_TRUE(Fnd::LessIgnoringASCIICase(u"day", u"Day 2"));
    EXPECT_FALSE(Fnd::LessIgnoringASCIICase(u"Day", u"day"));
    EXPECT_FALSE(Fnd::EqualsIgnoringASCIICase(u"[", u"{"));       // differ by the case bit only
    EXPECT_FALSE(Fnd::EqualsIgnoringASCIICase(u"@", u"`"));

    EXPECT_EQ(Fnd::Trim(u"\t. a b .\n", u" .\t\n"), WString(u"a b"));
    EXPECT_EQ(Fnd::Trim(u"    ", u" "), WString());
    EXPECT_EQ(Fnd::Trim(u" x ", u""), WString(u" x "));
}

} // namespace igd::test
