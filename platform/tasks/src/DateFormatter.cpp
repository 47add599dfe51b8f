#include <time.h>

#include <iomanip>
#include <locale>
#include <sstream>
#include <string>

#include "QL/IngestUtils.h"

namespace QL {
namespace {

// Formatting goes through the wide stream so that month and day names of the user's locale
// come out as Unicode whatever the locale's byte encoding is. wchar_t holds UTF-32 on Linux.
std::wstring ToUTF32(Fnd::WStringView utf16) {
    std::wstring out;
    out.reserve(utf16.size());
    for (std::size_t i = 0; i < utf16.size(); ++i) {
        char32_t unit = utf16[i];
        if (unit >= 0xD800 && unit <= 0xDBFF && i + 1 < utf16.size() && utf16[i + 1] >= 0xDC00 &&
            utf16[i + 1] <= 0xDFFF) {
            unit = 0x10000 + ((unit - 0xD800) << 10) + (utf16[i + 1] - 0xDC00);
            ++i;
        }
        out.push_back(static_cast<wchar_t>(unit));
    }
    return out;
}

Fnd::WString ToUTF16(const std::wstring& utf32) {
    Fnd::WString out;
    out.reserve(utf32.size());
    for (const wchar_t c : utf32) {
        auto cp = static_cast<char32_t>(c);
        if (cp >= 0x10000 && cp <= 0x10FFFF) {
            cp -= 0x10000;
            out.push_back(static_cast<Fnd::WChar>(0xD800 + (cp >> 10)));
            out.push_back(static_cast<Fnd::WChar>(0xDC00 + (cp & 0x3FF)));
        } else {
            out.push_back(static_cast<Fnd::WChar>(cp > 0x10FFFF ? 0xFFFD : cp));
        }
    }
    return out;
}

// The locale the user's environment names; the classic one when the environment names a locale
// this system does not have, which must not stop a folder name from being made.
std::locale NativeLocale() {
    try {
        return std::locale("");
    } catch (const std::runtime_error&) {
        return std::locale::classic();
    }
}

} // namespace

Fnd::WString IngestUtils::DateFormatter(const Fnd::WString& pattern, Fnd::Date date) {
    if (pattern.empty())
        return {};
    const time_t seconds = static_cast<time_t>(date.seconds);
    // localtime_r need not look at TZ again; a station moved across zones must name folders by
    // its present zone.
    ::tzset();
    struct tm local {};
    if (::localtime_r(&seconds, &local) == nullptr)
        return {};
    std::wostringstream out;
    out.imbue(NativeLocale());
    const std::wstring widePattern = ToUTF32(pattern);
    out << std::put_time(&local, widePattern.c_str());
    return ToUTF16(out.str());
}

} // namespace QL
