#pragma once
// Text crosses between the toolkit and Qt here only: both are UTF-16, so no conversion is lossy.
#include <QString>

#include "Fnd/WString.h"

namespace igd::qt {

inline QString ToQString(const Fnd::WString& text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

inline Fnd::WString FromQString(const QString& text) {
    return Fnd::WString(reinterpret_cast<const char16_t*>(text.utf16()),
                        static_cast<std::size_t>(text.size()));
}

} // namespace igd::qt
