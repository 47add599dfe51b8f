#include "PresetFieldObject.h"

namespace QL {

void PresetFieldObject::AddRef() {
    count_.fetch_add(1, std::memory_order_relaxed);
}

void PresetFieldObject::Release() {
    if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete this;
}

Fnd::QueryResult PresetFieldObject::QueryInterface(const Fnd::InterfaceID& id, void** out) {
    if (id == IQLPresetField::GetInterfaceID() || id == Fnd::FndUnknown::GetInterfaceID()) {
        AddRef();
        *out = static_cast<IQLPresetField*>(this);
        return Fnd::kQueryOK;
    }
    *out = nullptr;
    return Fnd::kQueryNoInterface;
}

} // namespace QL
