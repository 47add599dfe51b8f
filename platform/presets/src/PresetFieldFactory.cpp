#include "QL/PresetFieldFactory.h"

#include "Fnd/NullInterfaceException.h"
#include "PresetFieldObject.h"

namespace QL {
namespace {

std::vector<Fnd::WString> Texts(std::initializer_list<const char16_t*> texts) {
    return std::vector<Fnd::WString>(texts.begin(), texts.end());
}

// Masks read as the first number of the sequence ("001" renders 1 as 001, 12 as 012), so the
// sample line shows what the first clip will be called.
std::vector<Fnd::WString> CounterMasks() {
    return Texts({u"1", u"01", u"001", u"0001", u"00001", u"000001"});
}

// Every pattern must give a valid file name: no "/" or ":" between the tokens.
std::vector<Fnd::WString> DatePatterns() {
    return Texts({u"%Y%m%d", u"%Y-%m-%d", u"%Y_%m_%d", u"%y%m%d", u"%d-%m-%Y", u"%m-%d-%Y", u"%d%m%y"});
}

std::vector<Fnd::WString> TimePatterns() {
    return Texts({u"%H%M%S", u"%H-%M-%S", u"%H_%M_%S", u"%H.%M.%S", u"%H%M", u"%H-%M"});
}

} // namespace

std::vector<Fnd::WString> GetPredefinedFieldValues(_QLPresetFieldType type) {
    switch (type) {
    case kQLFieldAutoIncrement:
    case kQLFieldUserDefinedAutoIncrement:
        return CounterMasks();
    case kQLFieldCreationDate:
    case kQLFieldIngestDate:
        return DatePatterns();
    case kQLFieldCreationTime:
    case kQLFieldIngestTime:
        return TimePatterns();
    default:
        return {};
    }
}

Fnd::InterfaceRef<IQLPresetField> CreatePresetField(_QLPresetFieldType type) {
    Fnd::InterfaceRef<IQLPresetField> field(new PresetFieldObject(type));
    const auto choices = GetPredefinedFieldValues(type);
    if (!choices.empty())
        field->SetFormat(choices.front());
    return field;
}

Fnd::InterfaceRef<IQLPresetField> CreatePresetField(const Fnd::InterfaceRef<IQLPresetField>& field) {
    if (!field)
        throw Fnd::NullInterfaceException("QL::CreatePresetField: null field to copy");
    Fnd::InterfaceRef<IQLPresetField> copy(new PresetFieldObject(field->GetType()));
    copy->SetKey(field->GetKey());
    copy->SetRequired(field->GetRequired());
    // Format first: setting it also sets the value, which must then be the source's own.
    copy->SetFormat(field->GetFormat());
    copy->SetValue(field->GetValue());
    return copy;
}

} // namespace QL
