#pragma once
#include <string_view>
#include <type_traits>

#include <xercesc/util/XercesDefs.hpp>

#include "Fnd/WString.h"
#include "Fnd/XmlParser.h"

namespace QL::xml {

static_assert(std::is_same_v<XMLCh, char16_t>, "preset files assume Xerces with char16_t XMLCh");

// XMLCh is char16_t in this build of Xerces, so wide strings pass through without conversion.
inline const XMLCh* X(const Fnd::WString& text) {
    return text.c_str();
}
inline Fnd::WString W(const XMLCh* text) {
    return text ? Fnd::WString(text) : Fnd::WString();
}

} // namespace QL::xml
