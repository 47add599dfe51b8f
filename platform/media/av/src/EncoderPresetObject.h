#pragma once
#include <atomic>
#include <string>

#include "Av/EncoderList.h"
#include "Av/EncoderPresetFile.h"
#include "EncoderHost/IPreset.h"
#include "Fnd/InterfaceRef.h"

namespace Av {

// A preset read from a file. It never changes: a changed file gives a new object.
class EncoderPresetObject final : public EncoderHost::IPreset {
public:
    static const Fnd::InterfaceID& GetInterfaceID();
    static Fnd::InterfaceRef<EncoderPresetObject> Create(EncoderPresetDocument document, EncoderPresetInfo info);
    // Null for a preset of another list.
    static Fnd::InterfaceRef<EncoderPresetObject> From(const Mid::EncoderPresetRef& preset);

    void AddRef() override;
    void Release() override;
    Fnd::QueryResult QueryInterface(const Fnd::InterfaceID& id, void** out) override;
    Fnd::FndUnknown* GetRawObject() override { return this; }

    Fnd::WString GetName() const override { return document_.name; }
    const EncoderPresetDocument& Document() const { return document_; }
    const EncoderPresetInfo& Info() const { return info_; }

private:
    EncoderPresetObject(EncoderPresetDocument document, EncoderPresetInfo info)
        : document_(std::move(document)), info_(std::move(info)) {}

    std::atomic<int> count_{0};
    const EncoderPresetDocument document_;
    const EncoderPresetInfo info_;
};

} // namespace Av
