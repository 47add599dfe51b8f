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

} // namespace Av
