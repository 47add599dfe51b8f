#include "QL/IQLPreset.h"
#include "QL/IQLPresetField.h"
#include "QL/IQLPresetManager.h"
#include "QL/PresetObject.h"

namespace QL {

const Fnd::InterfaceID& IQLPreset::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{2C7A9E51-3F0B-4D86-B2E4-71A05C9D3E62}");
    return id;
}

const Fnd::InterfaceID& IQLPresetField::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{C41D6B08-8A2F-4E97-95C3-0F6E2B7A1D58}");
    return id;
}

const Fnd::InterfaceID& IQLPresetManager::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{962ACB35-4E26-44E8-BEE1-06D22A82F4EE}");
    return id;
}

const Fnd::InterfaceID& PresetObject::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{BEF27EDB-B147-4DEF-A47C-63DC34E5DE55}");
    return id;
}

} // namespace QL
