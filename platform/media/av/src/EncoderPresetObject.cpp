#include "EncoderPresetObject.h"

namespace Av {

const Fnd::InterfaceID& EncoderPresetObject::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{A3E9F1C4-6B27-4D58-8E0A-71C5D2B9E416}");
    return id;
}

Fnd::InterfaceRef<EncoderPresetObject> EncoderPresetObject::Create(EncoderPresetDocument document,
                                                                   EncoderPresetInfo info) {
    return Fnd::InterfaceRef<EncoderPresetObject>(new EncoderPresetObject(std::move(document), std::move(info)));
}

Fnd::InterfaceRef<EncoderPresetObject> EncoderPresetObject::From(const Mid::EncoderPresetRef& preset) {
    return Fnd::InterfaceRef<EncoderPresetObject>::Query(preset);
}

void EncoderPresetObject::AddRef() {
    count_.fetch_add(1, std::memory_order_relaxed);
}

void EncoderPresetObject::Release() {
    if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete this;
}

Fnd::QueryResult EncoderPresetObject::QueryInterface(const Fnd::InterfaceID& id, void** out) {
    if (id == GetInterfaceID()) {
        AddRef();
        *out = this;
        return Fnd::kQueryOK;
    }
    if (id == EncoderHost::IPreset::GetInterfaceID() || id == Fnd::FndUnknown::GetInterfaceID()) {
        AddRef();
        *out = static_cast<EncoderHost::IPreset*>(this);
        return Fnd::kQueryOK;
    }
    *out = nullptr;
    return Fnd::kQueryNoInterface;
}

} // namespace Av
