#include "Fnd/WString.h"

#include <algorithm>

namespace Fnd {

namespace {

constexpr char32_t kReplacementCharacter = 0xFFFD;
// What DecodeOne answers for an ill-formed sequence; no code point has this value.
constexpr char32_t kUndecodable = 0xFFFFFFFF;
// A byte that is no part of a UTF-8 character is kept as the lone low surrogate U+DC80 + (byte -
// 0x80). Decoding never makes a lone surrogate from well-formed text, so the byte comes back
// exactly when encoding: a name on disk survives the trip through wide text whatever its bytes.
constexpr WChar kFirstEscapedByte = 0xDC80;
constexpr WChar kLastEscapedByte = 0xDCFF;

WChar EscapedByte(unsigned char byte) {
    return static_cast<WChar>(0xDC00 + byte);
}

bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

void AppendCodePoint(WString& out, char32_t cp) {
    if (cp < 0x10000) {
        out.push_back(static_cast<WChar>(cp));
    } else {
        cp -= 0x10000;
        out.push_back(static_cast<WChar>(0xD800 + (cp >> 10)));
        out.push_back(static_cast<WChar>(0xDC00 + (cp & 0x3FF)));
    }
}

void AppendUTF8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out.push_back(static_cast<char>(cp));
    } else if (cp < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    }
}

// Decodes one sequence starting at utf8[i]; kUndecodable for an ill-formed one. Overlong forms,
// surrogates and values above U+10FFFF are ill-formed.
char32_t DecodeOne(std::string_view utf8, std::size_t& i) {
    const auto lead = static_cast<unsigned char>(utf8[i++]);
    if (lead < 0x80)
        return lead;

    int trailing = 0;
    char32_t cp = 0;
    unsigned char low = 0x80, high = 0xBF; // allowed range of the first continuation byte
    if (lead >= 0xC2 && lead <= 0xDF) {
        trailing = 1;
        cp = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        trailing = 2;
        cp = lead & 0x0F;
        if (lead == 0xE0)
            low = 0xA0; // overlong
        else if (lead == 0xED)
            high = 0x9F; // surrogates
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        trailing = 3;
        cp = lead & 0x07;
        if (lead == 0xF0)
            low = 0x90; // overlong
        else if (lead == 0xF4)
            high = 0x8F; // above U+10FFFF
    } else {
        return kUndecodable;
    }

    for (int k = 0; k < trailing; ++k) {
        if (i >= utf8.size())
            return kUndecodable;
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if (k == 0 ? (byte < low || byte > high) : !IsContinuation(byte))
            return kUndecodable;
        cp = (cp << 6) | (byte & 0x3F);
        ++i;
    }
    return cp;
}

void AppendHexEscape(std::string& out, unsigned byte) {
    static constexpr char kDigits[] = "0123456789abcdef";
    out += "\\x";
    out.push_back(kDigits[(byte >> 4) & 0xF]);
    out.push_back(kDigits[byte & 0xF]);
}

// Bytes: kept bytes come back as they were. Valid: well-formed UTF-8, kept bytes as \xNN.
// Display: Valid, and control characters escaped too.
enum class Encoding { Bytes, Valid, Display };

void AppendEncoded(WStringView wide, Encoding encoding, std::string& out) {
    for (std::size_t i = 0; i < wide.size(); ++i) {
        const char32_t unit = wide[i];
        if (encoding == Encoding::Display && (unit < 0x20 || unit == 0x7F)) {
            if (unit == u'\n')
                out += "\\n";
            else if (unit == u'\r')
                out += "\\r";
            else if (unit == u'\t')
                out += "\\t";
            else
                AppendHexEscape(out, unit);
        } else if (unit < 0xD800 || unit > 0xDFFF) {
            AppendUTF8(out, unit);
        } else if (unit <= 0xDBFF && i + 1 < wide.size() && wide[i + 1] >= 0xDC00 && wide[i + 1] <= 0xDFFF) {
            AppendUTF8(out, 0x10000 + ((unit - 0xD800) << 10) + (wide[i + 1] - 0xDC00));
            ++i;
        } else if (unit >= kFirstEscapedByte && unit <= kLastEscapedByte) {
            if (encoding == Encoding::Bytes)
                out.push_back(static_cast<char>(unit - 0xDC00));
            else
                AppendHexEscape(out, unit - 0xDC00);
        } else {
            // Any other unpaired surrogate cannot be written as UTF-8.
            AppendUTF8(out, kReplacementCharacter);
        }
    }
}

} // namespace

WString FromUTF8(std::string_view utf8) {
    WString out;
    out.reserve(utf8.size());
    std::size_t i = 0;
    while (i < utf8.size()) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if (byte < 0x80) {
            out.push_back(byte);
            ++i;
            continue;
        }
        const std::size_t start = i;
        const char32_t cp = DecodeOne(utf8, i);
        if (cp == kUndecodable) {
            // Only the first byte is escaped: the next one may start a good character.
            out.push_back(EscapedByte(byte));
            i = start + 1;
        } else {
            AppendCodePoint(out, cp);
        }
    }
    return out;
}

void ToUTF8(WStringView wide, std::string& out) {
    // Paths are nearly always ASCII, and every existence test of a plan converts one: copy the
    // ASCII run directly and fall into the general loop only at the first other character.
    out.resize(wide.size());
    std::size_t ascii = 0;
    while (ascii < wide.size() && wide[ascii] < 0x80) {
        out[ascii] = static_cast<char>(wide[ascii]);
        ++ascii;
    }
    out.resize(ascii);
    if (ascii == wide.size())
        return;
    out.reserve(wide.size() + wide.size() / 2);
    AppendEncoded(wide.substr(ascii), Encoding::Bytes, out);
}

std::string ToUTF8(WStringView wide) {
    std::string out;
    ToUTF8(wide, out);
    return out;
}

std::string ToValidUTF8(WStringView wide) {
    std::string out;
    out.reserve(wide.size());
    AppendEncoded(wide, Encoding::Valid, out);
    return out;
}

std::string ToDisplayUTF8(WStringView wide) {
    std::string out;
    out.reserve(wide.size());
    AppendEncoded(wide, Encoding::Display, out);
    return out;
}

WString FromASCII(std::string_view ascii) {
    WString out;
    out.reserve(ascii.size());
    for (char c : ascii) {
        const auto byte = static_cast<unsigned char>(c);
        out.push_back(byte < 0x80 ? static_cast<WChar>(byte) : static_cast<WChar>(kReplacementCharacter));
    }
    return out;
}

WString ToDecimal(std::uint64_t value) {
    WChar digits[20];
    std::size_t count = 0;
    do {
        digits[count++] = static_cast<WChar>(u'0' + value % 10);
        value /= 10;
    } while (value != 0);
    WString out;
    out.reserve(count);
    while (count > 0)
        out.push_back(digits[--count]);
    return out;
}

namespace {

WChar FoldASCIICase(WChar c) {
    return (c >= u'A' && c <= u'Z') ? static_cast<WChar>(c + (u'a' - u'A')) : c;
}

} // namespace

bool EqualsIgnoringASCIICase(WStringView a, WStringView b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (FoldASCIICase(a[i]) != FoldASCIICase(b[i]))
            return false;
    }
    return true;
}

bool LessIgnoringASCIICase(WStringView a, WStringView b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](WChar x, WChar y) { return FoldASCIICase(x) < FoldASCIICase(y); });
}

WString ToLowerASCII(WStringView text) {
    WString lower(text);
    for (WChar& c : lower)
        c = FoldASCIICase(c);
    return lower;
}

WString Trim(WStringView text, WStringView characters) {
    const auto first = text.find_first_not_of(characters);
    if (first == WStringView::npos)
        return {};
    const auto last = text.find_last_not_of(characters);
    return WString(text.substr(first, last - first + 1));
}

} // namespace Fnd
