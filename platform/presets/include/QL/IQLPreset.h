#pragma once
#include <cstdint>
#include <vector>

#include "Fnd/InterfaceRef.h"
#include "Fnd/WString.h"
#include "QL/IQLPresetField.h"

namespace QL {

using PresetFieldList = std::vector<Fnd::InterfaceRef<IQLPresetField>>;

// A named, file-backed list of fields.
class IQLPreset : public Fnd::FndUnknown {
public:
    static const Fnd::InterfaceID& GetInterfaceID();

    virtual std::uint64_t GetPresetID() const = 0;
    virtual Fnd::WString GetName(bool localized) const = 0;
    virtual void SetName(const Fnd::WString& name) = 0;
    // A deep working copy with the same name and path.
    virtual Fnd::InterfaceRef<IQLPreset> ClonePreset(bool keepIdentity) const = 0;
    virtual bool IsUserPreset() const = 0;
    virtual void SetFields(const PresetFieldList& fields) = 0;
    // The preset's own field objects, not copies.
    virtual PresetFieldList GetFields() const = 0;
    virtual Fnd::WString GetPath() const = 0;
};

} // namespace QL
