#pragma once
#include <array>
#include <cstdint>

#include "fluxcore/Guid.h"

namespace Fnd {

// Identity of an interface, compared by value.
using InterfaceID = fluxcore::utility::Guid;

// Builds an InterfaceID from its textual form; a malformed text is a programming fault.
InterfaceID MakeInterfaceID(const char* text);

using QueryResult = std::uint32_t;
inline constexpr QueryResult kQueryOK = 0;
inline constexpr QueryResult kQueryNoInterface = 0xA00A0001u;

// Root of reference-counted interfaces. Release deletes the object with its last reference.
class FndUnknown {
public:
    virtual void AddRef() = 0;
    virtual void Release() = 0;
    virtual ~FndUnknown() = default;
    // On success stores the interface with one reference added and answers kQueryOK; otherwise
    // stores null and answers kQueryNoInterface.
    virtual QueryResult QueryInterface(const InterfaceID& id, void** out) = 0;
    virtual FndUnknown* GetRawObject() = 0;

    // {4FE4D60F-96B2-4636-8BF3-6770A8E94E34}
    static const InterfaceID& GetInterfaceID();
};

} // namespace Fnd
