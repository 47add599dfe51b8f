#include "IGD/MetadataPresetRules.h"

#include <set>
#include <string_view>

#include "fluxcore/ZString.h"

namespace IGD {
namespace {

using fluxcore::Localize;

// Twenty-nine characters: those with a meaning in the paths and query syntax that property names
// travel through, and the white space that would split them.
constexpr std::u16string_view kForbidden = u" \t<>/\\?@#$~!%^&*():;'[]{}`=+,";
static_assert(kForbidden.size() == 29);

bool IsAsciiDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

Fnd::WString Title(MetadataNameKind kind) {
    return kind == MetadataNameKind::FieldName
               ? Localize("$$$/Quillon/Ingest/InvalidMetadataKey=Invalid Metadata Field Name")
               : Localize("$$$/Quillon/Ingest/InvalidMetadataPresetName=Invalid Metadata Preset Name");
}

MetadataNameProblem Problem(MetadataNameKind kind, std::string_view fieldText, std::string_view presetText) {
    return {Title(kind), Localize(kind == MetadataNameKind::FieldName ? fieldText : presetText)};
}

} // namespace

MetadataNameProblem CheckMetadataName(const Fnd::WString& name, MetadataNameKind kind) {
    if (name.empty())
        return {};
    // Only ASCII digits: a name may well begin with a digit of another script.
    if (IsAsciiDigit(name.front()))
        return Problem(
            kind,
            "$$$/Quillon/Ingest/InvalidMetadataKeyFirstLetterNumber=The first character of the field "
            "name cannot be a number.",
            "$$$/Quillon/Ingest/InvalidPresetNameFirstLetterNumber=The first character of the "
            "metadata preset name cannot be a number.");
    if (name.front() == u'-' || name.front() == u'.')
        return Problem(
            kind,
            "$$$/Quillon/Ingest/InvalidMetadataKeyFirstLetterChar=The first character of the field "
            "name is an invalid character.",
            "$$$/Quillon/Ingest/InvalidPresetNameFirstLetterChar=The first character of the "
            "metadata preset name is an invalid character.");
    if (name.find_first_of(kForbidden) != Fnd::WString::npos)
        return Problem(
            kind, "$$$/Quillon/Ingest/InvalidMetadataKeyBadLetter=Field names contain invalid character.",
            "$$$/Quillon/Ingest/InvalidPresetNameBadLetter=Metadata preset name contains an invalid "
            "character.");
    return {};
}

Fnd::WString TrimMetadataKey(const Fnd::WString& key) {
    constexpr std::u16string_view blanks = u" \t";
    const auto first = key.find_first_not_of(blanks);
    if (first == Fnd::WString::npos)
        return {};
    return key.substr(first, key.find_last_not_of(blanks) - first + 1);
}

MetadataNameProblem CheckMetadataKeys(const QL::PresetFieldList& fields) {
    std::set<Fnd::WString> seen;
    for (const auto& field : fields) {
        const Fnd::WString key = TrimMetadataKey(field->GetKey());
        if (key.empty())
            continue;
        if (auto problem = CheckMetadataName(key, MetadataNameKind::FieldName))
            return problem;
        if (!seen.insert(key).second)
            return {Localize("$$$/Quillon/Ingest/DuplicateMetadataKeyCaption=Duplicate Metadata Field Name"),
                    Localize("$$$/Quillon/Ingest/DuplicateMetadataKeyMessage=Metadata preset may not contain "
                             "multiple fields with the same name.")};
    }
    return {};
}

MetadataNameProblem CheckMetadataPreset(const Fnd::WString& name, const QL::PresetFieldList& fields) {
    if (auto problem = CheckMetadataKeys(fields))
        return problem;
    return CheckMetadataName(name, MetadataNameKind::PresetName);
}

} // namespace IGD
