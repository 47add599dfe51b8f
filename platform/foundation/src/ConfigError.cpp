#include "fluxcore/ConfigError.h"

#include "fluxcore/ZString.h"

namespace fluxcore::config {

Error::Error(std::string key, Fnd::WString text)
    : std::runtime_error(Fnd::ToUTF8(text)), key_(std::move(key)), text_(std::move(text)) {}

void ThrowError(std::string_view keyAndDefault) {
    const ZString message(keyAndDefault);
    throw Error(message.Key(), message.ToWString());
}

} // namespace fluxcore::config
