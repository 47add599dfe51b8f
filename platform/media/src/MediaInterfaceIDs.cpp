#include "EncoderHost/IPreset.h"
#include "Plug/IExporterModule.h"

namespace EncoderHost {
const Fnd::InterfaceID& IPreset::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{6B1C2E0A-52D4-4F3B-9E1D-0C8A4B7E2F11}");
    return id;
}
} // namespace EncoderHost

namespace Plug {
const Fnd::InterfaceID& IExporterModule::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{9D3F7A21-0B6E-4C58-A1F2-5E7C3D9B8A04}");
    return id;
}
} // namespace Plug
