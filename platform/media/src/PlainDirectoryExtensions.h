#pragma once
#include <vector>

#include "Fnd/WString.h"

namespace Plug {

// What a camera card or a plain folder of media holds, by kind.
inline constexpr const char* kPlainDirectoryProviderName = "PlainDirectory";
std::vector<Fnd::WString> PlainDirectoryVideoExtensions();
std::vector<Fnd::WString> PlainDirectoryAudioExtensions();
std::vector<Fnd::WString> PlainDirectoryStillExtensions();

} // namespace Plug
