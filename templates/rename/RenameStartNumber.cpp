#include "templates/rename/RenameStartNumber.h"

#include <cstdio>
#include <limits>

namespace IGD {
namespace {

// Decimal digits only, nothing in front or behind, and within 32 bits; else 0.
std::uint32_t ParseUnsigned32(Fnd::WStringView text) {
    if (text.empty())
        return 0;
    std::uint64_t number = 0;
    for (const char16_t c : text) {
        if (c < u'0' || c > u'9')
            return 0;
        number = number * 10 + static_cast<std::uint64_t>(c - u'0');
        if (number > std::numeric_limits<std::uint32_t>::max())
            return 0;
    }
    return static_cast<std::uint32_t>(number);
}

} // namespace

std::uint32_t StartNumberFromEdit(double value, Fnd::WStringView mask) {
    char rendered[64];
    std::snprintf(rendered, sizeof rendered, "%1.*lg", 17, value);
    Fnd::WString text = Fnd::FromASCII(rendered);
    if (text.size() < mask.size())
        text.insert(0, mask.substr(0, mask.size() - text.size()));
    return ParseUnsigned32(text);
}

} // namespace IGD
