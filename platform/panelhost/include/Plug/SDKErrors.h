#pragma once
// The host's error log for extension panels: the last failure a panel step met, for the host to
// show. Setting it also writes the line on stderr, so a host without a log still keeps it.
#include <string_view>

#include "Fnd/WString.h"

namespace Plug::SDKErrors {

// text is a "$$$/key=default" string and is localized; detail follows it when not empty.
void SetSDKErrorString(std::string_view text, const Fnd::WString& detail);
// The last string set, localized; empty when none was set since the last Clear.
Fnd::WString GetSDKErrorString();
void ClearSDKErrorString();

} // namespace Plug::SDKErrors
