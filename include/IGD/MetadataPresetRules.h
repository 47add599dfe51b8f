#pragma once
// The rules a metadata preset's keys and name follow. Keys and the name end up as names of metadata
// properties and of a schema namespace, so they are held to a stricter set than file names. The
// metadata template applies these rules with a box when the user saves; a host that takes presets
// from elsewhere (a file to install) applies the same rules here, without one.
#include "Fnd/WString.h"
#include "IGD/Export.h"
#include "QL/IQLPreset.h"

namespace IGD {

// What is wrong, as the user reads it in a box: its title and its text. Empty when nothing is.
struct MetadataNameProblem {
    Fnd::WString title;
    Fnd::WString text;

    explicit operator bool() const { return !text.empty(); }
};

enum class MetadataNameKind { FieldName, PresetName };

// A key or a preset name; the messages differ by kind. An empty name passes.
IGD_EXPORT MetadataNameProblem CheckMetadataName(const Fnd::WString& name, MetadataNameKind kind);

// The key as it is checked and compared: without blanks and tabs at either end.
IGD_EXPORT Fnd::WString TrimMetadataKey(const Fnd::WString& key);

// The first key, in field order, that breaks the rules or repeats an earlier one (after trimming,
// comparing case). Fields whose trimmed key is empty are passed over: they are never saved.
IGD_EXPORT MetadataNameProblem CheckMetadataKeys(const QL::PresetFieldList& fields);

// The keys, then the name: the order in which a save in the dialog meets them.
IGD_EXPORT MetadataNameProblem CheckMetadataPreset(const Fnd::WString& name,
                                                   const QL::PresetFieldList& fields);

} // namespace IGD
