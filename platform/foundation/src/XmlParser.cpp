#include "Fnd/XmlParser.h"

#include <mutex>

#include <xercesc/util/PlatformUtils.hpp>

namespace Fnd {

void EnsureXmlParser() {
    static std::once_flag once;
    std::call_once(once, [] { xercesc::XMLPlatformUtils::Initialize(); });
}

} // namespace Fnd
