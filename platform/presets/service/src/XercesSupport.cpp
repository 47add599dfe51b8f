#include "XercesSupport.h"

#include <mutex>
#include <type_traits>

#include <xercesc/util/PlatformUtils.hpp>

namespace QL::xml {

static_assert(std::is_same_v<XMLCh, char16_t>, "preset files assume Xerces with char16_t XMLCh");

void EnsureXercesInitialized() {
    static std::once_flag once;
    std::call_once(once, [] { xercesc::XMLPlatformUtils::Initialize(); });
}

} // namespace QL::xml
