#pragma once
#include <atomic>
#include <cstdint>

#include "Fnd/InterfaceRef.h"
#include "Fnd/WString.h"
#include "QL/IQLPreset.h"
#include "QL/QLPresetConstants.h"

namespace QL {

// A preset held in memory: the object the file-backed service hands out, and one that a host or
// a test can make without any service. Its identity never changes while it lives; presets read
// from a file take theirs from the file's path, so they are the same between managers and runs.
class PresetObject final : public IQLPreset {
public:
    static const Fnd::InterfaceID& GetInterfaceID();

    // A preset without a file, with a fresh identity, user-owned, holding the given fields.
    static Fnd::InterfaceRef<PresetObject> Create(_QLPresetCategory category, const Fnd::WString& name = {},
                                                  const PresetFieldList& fields = {});
    // The PresetObject behind a preset reference; null for a preset of another implementation.
    static Fnd::InterfaceRef<PresetObject> From(const Fnd::InterfaceRef<IQLPreset>& preset);
    // The identity of a preset read from the file at `path`: the same text gives the same number.
    static std::uint64_t IdentityForPath(const Fnd::WString& path);

    void AddRef() override;
    void Release() override;
    Fnd::QueryResult QueryInterface(const Fnd::InterfaceID& id, void** out) override;
    Fnd::FndUnknown* GetRawObject() override { return this; }

    std::uint64_t GetPresetID() const override { return id_; }
    Fnd::WString GetName(bool localized) const override { return name_; }
    void SetName(const Fnd::WString& name) override { name_ = name; }
    // keepIdentity false (what the dialog passes) gives the copy an identity of its own.
    Fnd::InterfaceRef<IQLPreset> ClonePreset(bool keepIdentity) const override;
    bool IsUserPreset() const override { return userPreset_; }
    // A null field is a programming fault and raises Fnd::NullInterfaceException.
    void SetFields(const PresetFieldList& fields) override;
    PresetFieldList GetFields() const override { return fields_; }
    Fnd::WString GetPath() const override { return path_; }

    _QLPresetCategory GetCategory() const { return category_; }
    void SetPath(const Fnd::WString& path) { path_ = path; }
    void SetUserPreset(bool userPreset) { userPreset_ = userPreset; }
    void SetPresetID(std::uint64_t id) { id_ = id; }

private:
    PresetObject(_QLPresetCategory category, std::uint64_t id);

    std::atomic<int> count_{0};
    _QLPresetCategory category_;
    std::uint64_t id_;
    Fnd::WString name_;
    Fnd::WString path_;
    bool userPreset_ = true;
    PresetFieldList fields_;
};

} // namespace QL
