#pragma once
#include <locale>
#include <sstream>
#include <string>

#include "Fnd/Date.h"
#include "Fnd/WString.h"

namespace Fnd {

// Formats moments as names show them: in the local time zone, with the month and day names of the
// user's locale, by a strftime pattern. One formatter can serve a whole run, so the locale is
// looked up once and the stream is reused rather than built for every field of every item.
class LocalTimeFormatter {
public:
    LocalTimeFormatter();

    // A pattern the formatter cannot use gives what was produced before it failed; never throws
    // for a pattern.
    WString Format(Date date, WStringView pattern);

private:
    std::wostringstream stream_;
    std::wstring pattern_;
};

// The locale of the user's environment; the classic one when the environment names a locale this
// system does not have, which must never stop a name from being made.
std::locale NativeLocale();

} // namespace Fnd
