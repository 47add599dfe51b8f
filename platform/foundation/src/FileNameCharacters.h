#pragma once
// Shared by Fnd::PathUtils and fluxcore's FileUtils so that removing and replacing illegal
// characters can never disagree about which ones are illegal.
#include "Fnd/WString.h"

namespace Fnd::detail {

// Characters that are refused in a file name on any filesystem a destination may live on, not
// only on the POSIX one underneath: media is routinely carried to other systems.
inline bool IsIllegalFileNameCharacter(WChar c) {
    switch (c) {
    case u'\\':
    case u'/':
    case u':':
    case u'*':
    case u'?':
    case u'"':
    case u'<':
    case u'>':
    case u'|':
        return true;
    default:
        return c < 0x20;
    }
}

} // namespace Fnd::detail
