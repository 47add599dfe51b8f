#include "QL/PresetObject.h"

#include "Fnd/NullInterfaceException.h"
#include "QL/PresetFieldFactory.h"

namespace QL {
namespace {

// Identities of presets read from a file have the top bit clear; those of presets made in memory
// have it set, so the two kinds never meet.
constexpr std::uint64_t kInMemoryIdentityBit = 0x8000000000000000ull;

std::uint64_t NextInMemoryIdentity() {
    static std::atomic<std::uint64_t> next{1};
    return kInMemoryIdentityBit | next.fetch_add(1, std::memory_order_relaxed);
}

} // namespace

PresetObject::PresetObject(_QLPresetCategory category, std::uint64_t id) : category_(category), id_(id) {}

Fnd::InterfaceRef<PresetObject> PresetObject::Create(_QLPresetCategory category, const Fnd::WString& name,
                                                     const PresetFieldList& fields) {
    Fnd::InterfaceRef<PresetObject> preset(new PresetObject(category, NextInMemoryIdentity()));
    preset->SetName(name);
    preset->SetFields(fields);
    return preset;
}

Fnd::InterfaceRef<PresetObject> PresetObject::From(const Fnd::InterfaceRef<IQLPreset>& preset) {
    return Fnd::InterfaceRef<PresetObject>::Query(preset);
}

std::uint64_t PresetObject::IdentityForPath(const Fnd::WString& path) {
    // FNV-1a over the UTF-16 units: cheap, stable across runs and builds.
    std::uint64_t hash = 0xcbf29ce484222325ull;
    for (char16_t unit : path) {
        hash ^= static_cast<std::uint64_t>(unit);
        hash *= 0x100000001b3ull;
    }
    return hash & ~kInMemoryIdentityBit;
}

void PresetObject::AddRef() {
    count_.fetch_add(1, std::memory_order_relaxed);
}

void PresetObject::Release() {
    if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete this;
}

Fnd::QueryResult PresetObject::QueryInterface(const Fnd::InterfaceID& id, void** out) {
    if (id == PresetObject::GetInterfaceID()) {
        AddRef();
        *out = this;
        return Fnd::kQueryOK;
    }
    if (id == IQLPreset::GetInterfaceID() || id == Fnd::FndUnknown::GetInterfaceID()) {
        AddRef();
        *out = static_cast<IQLPreset*>(this);
        return Fnd::kQueryOK;
    }
    *out = nullptr;
    return Fnd::kQueryNoInterface;
}

Fnd::InterfaceRef<IQLPreset> PresetObject::ClonePreset(bool keepIdentity) const {
    Fnd::InterfaceRef<PresetObject> copy(
        new PresetObject(category_, keepIdentity ? id_ : NextInMemoryIdentity()));
    copy->name_ = name_;
    copy->path_ = path_;
    copy->userPreset_ = userPreset_;
    copy->fields_.reserve(fields_.size());
    for (const auto& field : fields_)
        copy->fields_.push_back(CreatePresetField(field));
    return Fnd::InterfaceRef<IQLPreset>(copy.get());
}

void PresetObject::SetFields(const PresetFieldList& fields) {
    for (const auto& field : fields)
        if (!field)
            throw Fnd::NullInterfaceException("QL::IQLPreset::SetFields: null field");
    fields_ = fields;
}

} // namespace QL
