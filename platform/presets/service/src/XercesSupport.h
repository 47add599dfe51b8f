#pragma once
#include <string_view>

#include <xercesc/util/XercesDefs.hpp>

#include "Fnd/WString.h"

namespace QL::xml {

// Xerces counts its initialisations, so every user may call this; it is never terminated, since
// other parts of the process may still hold documents at exit.
void EnsureXercesInitialized();

// XMLCh is char16_t in this build of Xerces, so wide strings pass through without conversion.
inline const XMLCh* X(const Fnd::WString& text) {
    return text.c_str();
}
inline Fnd::WString W(const XMLCh* text) {
    return text ? Fnd::WString(text) : Fnd::WString();
}

} // namespace QL::xml
