#pragma once
#include "Fnd/WString.h"

namespace IGD {

// The format of items that come from a plain folder, and of every single file a host names
// directly. Hosted applications rename only items of this format.
inline const Fnd::WString kPlainDirectoryItemFormat = u"com.veltrix.Kestrel.WinProviderDirectory";

} // namespace IGD
