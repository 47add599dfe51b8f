#include "Fnd/LocalTimeFormatter.h"

#include <time.h>

#include <iomanip>
#include <stdexcept>

namespace Fnd {
namespace {

// The wide stream works in wchar_t, which holds UTF-32 here, so that locale names come out as
// Unicode whatever the locale's byte encoding is.
void AppendUTF32(Fnd::WStringView utf16, std::wstring& out) {
    out.clear();
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

} // namespace

std::locale NativeLocale() {
    try {
        return std::locale("");
    } catch (const std::runtime_error&) {
        return std::locale::classic();
    }
}

LocalTimeFormatter::LocalTimeFormatter() {
    // A station carried across zones must name files by the zone it is in now.
    ::tzset();
    stream_.imbue(NativeLocale());
}

WString LocalTimeFormatter::Format(Date date, WStringView pattern) {
    if (pattern.empty())
        return {};
    const time_t seconds = static_cast<time_t>(date.seconds);
    struct tm local {};
    if (::localtime_r(&seconds, &local) == nullptr)
        return {};
    stream_.clear();
    stream_.str(std::wstring());
    AppendUTF32(pattern, pattern_);
    stream_ << std::put_time(&local, pattern_.c_str());
    return ToUTF16(stream_.str());
}

} // namespace Fnd
