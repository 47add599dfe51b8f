#include "Proj/Backend.h"
#include "Proj/IPreferences.h"

namespace Proj {

const Fnd::InterfaceID& IPreferences::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{814DDA28-5B41-4F12-B67A-7450BFA3191E}");
    return id;
}

const Fnd::InterfaceID& IBackend::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{6B0E3F2A-91C4-4D7E-8A35-2F9C1E7B4D60}");
    return id;
}

} // namespace Proj
