#include "Fnd/FndUnknown.h"

#include <stdexcept>
#include <string>

namespace Fnd {

InterfaceID MakeInterfaceID(const char* text) {
    if (text == nullptr)
        throw std::invalid_argument("MakeInterfaceID: null text");
    const auto id = InterfaceID::FromString(text);
    // Interface ids are literals in the source: a bad one is a typo to fix, not a state to handle.
    if (!id)
        throw std::invalid_argument("MakeInterfaceID: not an interface id: \"" + std::string(text) + "\"");
    return *id;
}

const InterfaceID& FndUnknown::GetInterfaceID() {
    static const InterfaceID id = MakeInterfaceID("{4FE4D60F-96B2-4636-8BF3-6770A8E94E34}");
    return id;
}

} // namespace Fnd
