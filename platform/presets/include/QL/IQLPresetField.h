#pragma once
#include "Fnd/FndUnknown.h"
#include "Fnd/WString.h"

namespace QL {

enum _QLPresetFieldType : int {
    kQLFieldAutoIncrement = 0,
    kQLFieldCustomText = 1,
    kQLFieldCreationDate = 2,
    kQLFieldIngestDate = 3,
    kQLFieldCreationTime = 4,
    kQLFieldIngestTime = 5,
    kQLFieldFileName = 6,
    kQLFieldMetadata = 7,
    kQLFieldUserDefinedAutoIncrement = 8,
};

// One field of a rename or metadata template.
class IQLPresetField : public Fnd::FndUnknown {
public:
    static const Fnd::InterfaceID& GetInterfaceID();

    virtual Fnd::WString GetKey() const = 0;
    virtual Fnd::WString GetValue() const = 0;
    virtual bool GetRequired() const = 0;
    virtual Fnd::WString GetFormat() const = 0;
    virtual void SetKey(const Fnd::WString& key) = 0;
    virtual void SetValue(const Fnd::WString& value) = 0;
    virtual void SetRequired(bool required) = 0;
    // Sets the format and makes the value equal to it.
    virtual void SetFormat(const Fnd::WString& format) = 0;
    virtual void SetType(_QLPresetFieldType type) = 0;
    virtual _QLPresetFieldType GetType() const = 0;
};

} // namespace QL
