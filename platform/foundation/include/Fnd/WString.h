#pragma once
// Wide strings of the library: UTF-16 everywhere inside, UTF-8 only at the operating system,
// files and databases.
#include <cstdint>
#include <string>
#include <string_view>

namespace Fnd {

using WChar = char16_t;
using WString = std::u16string;
using WStringView = std::u16string_view;

// Names on Linux are bytes, not always UTF-8: each byte that is no part of a well-formed
// character becomes the lone surrogate U+DC80 to U+DCFF and ToUTF8 gives the byte back, so a name
// read from disk or the command line reaches the same file again. Such text is for the operating
// system and byte stores; where it is shown or written into a text format, use ToValidUTF8 or
// ToDisplayUTF8.
WString FromUTF8(std::string_view utf8);
std::string ToUTF8(WStringView wide);
// The same into a buffer whose capacity is reused, for conversions on hot paths.
void ToUTF8(WStringView wide, std::string& out);

// Well-formed UTF-8 for text formats (XML, JSON, logs): a kept byte is written as the four
// characters \xNN; any other unpaired surrogate as U+FFFD.
std::string ToValidUTF8(WStringView wide);
// The same for a name shown to a person on one line: control characters are escaped as well, as
// \n, \r, \t or \xNN, so a name can neither break a line of a report nor pass for two.
std::string ToDisplayUTF8(WStringView wide);

// ASCII-only text to wide, for literals and numbers.
WString FromASCII(std::string_view ascii);
WString ToDecimal(std::uint64_t value);

// Compares ignoring the case of A to Z only, as file extensions are compared.
bool EqualsIgnoringASCIICase(WStringView a, WStringView b);
// Orders by UTF-16 unit with A to Z folded to a to z, a text before its longer continuation.
bool LessIgnoringASCIICase(WStringView a, WStringView b);
// A to Z as a to z; every other unit as it is.
WString ToLowerASCII(WStringView text);

// Removes the given characters from both ends.
WString Trim(WStringView text, WStringView characters);

} // namespace Fnd
