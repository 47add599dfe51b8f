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

// Invalid sequences become U+FFFD rather than failing: a file name from disk must always be
// representable, even when it is not valid UTF-8.
WString FromUTF8(std::string_view utf8);
std::string ToUTF8(WStringView wide);
// The same into a buffer whose capacity is reused, for conversions on hot paths.
void ToUTF8(WStringView wide, std::string& out);

// ASCII-only text to wide, for literals and numbers.
WString FromASCII(std::string_view ascii);
WString ToDecimal(std::uint64_t value);

// Compares ignoring the case of A to Z only, as file extensions are compared.
bool EqualsIgnoringASCIICase(WStringView a, WStringView b);

// Removes the given characters from both ends.
WString Trim(WStringView text, WStringView characters);

} // namespace Fnd
