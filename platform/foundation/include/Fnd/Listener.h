#pragma once
#include "Fnd/Message.h"
#include "fluxcore/ImmutableString.h"

namespace Fnd {

using StationID = fluxcore::utility::ImmutableString;

class Listener {
public:
    virtual ~Listener() = default;
    virtual void ListenToMessage(const StationID& station, const Message& message) = 0;
};

} // namespace Fnd
