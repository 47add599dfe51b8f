#pragma once
#include <string>

#include "Av/EncoderList.h"
#include "Av/EncoderPresetFile.h"
#include "EncoderHost/IPreset.h"
#include "Fnd/InterfaceRef.h"
#include "Fnd/UnknownObject.h"

namespace Av {

// A preset read from a file. It never changes: a changed file gives a new object.
class EncoderPresetObject final : public Fnd::UnknownObject<EncoderPresetObject, EncoderHost::IPreset> {
public:
    static const Fnd::InterfaceID& GetInterfaceID();
    static Fnd::InterfaceRef<EncoderPresetObject> Create(EncoderPresetDocument document, EncoderPresetInfo info);
    // Null for a preset of another list.
    static Fnd::InterfaceRef<EncoderPresetObject> From(const Mid::EncoderPresetRef& preset);

    Fnd::WString GetName() const override { return document_.name; }
    const EncoderPresetDocument& Document() const { return document_; }
    const EncoderPresetInfo& Info() const { return info_; }

private:
    EncoderPresetObject(EncoderPresetDocument document, EncoderPresetInfo info)
        : document_(std::move(document)), info_(std::move(info)) {}

    const EncoderPresetDocument document_;
    const EncoderPresetInfo info_;
};

} // namespace Av
