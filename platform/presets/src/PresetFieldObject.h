#pragma once
#include <atomic>

#include "QL/IQLPresetField.h"

namespace QL {

// The one implementation of a preset field: five plain values.
class PresetFieldObject final : public IQLPresetField {
public:
    explicit PresetFieldObject(_QLPresetFieldType type) : type_(type) {}
    PresetFieldObject(const PresetFieldObject&) = delete;
    PresetFieldObject& operator=(const PresetFieldObject&) = delete;

    void AddRef() override;
    void Release() override;
    Fnd::QueryResult QueryInterface(const Fnd::InterfaceID& id, void** out) override;
    Fnd::FndUnknown* GetRawObject() override { return this; }

    Fnd::WString GetKey() const override { return key_; }
    Fnd::WString GetValue() const override { return value_; }
    bool GetRequired() const override { return required_; }
    Fnd::WString GetFormat() const override { return format_; }
    void SetKey(const Fnd::WString& key) override { key_ = key; }
    void SetValue(const Fnd::WString& value) override { value_ = value; }
    void SetRequired(bool required) override { required_ = required; }
    // The value follows the format until someone types a value of their own.
    void SetFormat(const Fnd::WString& format) override {
        format_ = format;
        value_ = format;
    }
    void SetType(_QLPresetFieldType type) override { type_ = type; }
    _QLPresetFieldType GetType() const override { return type_; }

private:
    std::atomic<int> count_{0};
    _QLPresetFieldType type_;
    Fnd::WString key_;
    Fnd::WString value_;
    Fnd::WString format_;
    bool required_ = false;
};

} // namespace QL
