#include "Fnd/Message.h"

namespace Fnd {

MessageID HashMessageTypeNameToMessageID(std::string_view typeName) {
    constexpr std::uint32_t kOffsetBasis = 2166136261u;
    constexpr std::uint32_t kPrime = 16777619u;
    std::uint32_t hash = kOffsetBasis;
    for (char c : typeName) {
        hash ^= static_cast<unsigned char>(c);
        hash *= kPrime;
    }
    return hash;
}

} // namespace Fnd
