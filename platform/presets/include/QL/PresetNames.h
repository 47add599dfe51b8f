#pragma once
#include <string>

#include "Fnd/WString.h"
#include "QL/QLPresetConstants.h"

namespace QL {

// A name that can become the name of a user preset file: a valid file name
// (Fnd::PathUtils::IsValidFileName: none of \ / : * ? " < > |), no control character, not
// starting with "." (hidden files surprise users), and short enough for the filesystem once the
// extension is added. The one rule for every name: the dialog's name check asks it before a save,
// and the service refuses what it refuses, so a name the user was allowed to type always saves.
bool IsUsablePresetName(const Fnd::WString& name, _QLPresetCategory category);
// Why a name is not usable, in words for the user; empty for a usable name.
std::string PresetNameProblem(const Fnd::WString& name, _QLPresetCategory category);

// The file name (not the path) of a user preset of that name, extension included.
Fnd::WString PresetFileName(const Fnd::WString& name, _QLPresetCategory category);

// "Name (2)": how an installed preset is kept beside another of the same name.
Fnd::WString NumberedPresetName(const Fnd::WString& name, unsigned number);

// Orders names as the preset popup does: UTF-16 units with A to Z folded to lower case.
bool PresetNameLess(const Fnd::WString& a, const Fnd::WString& b);

} // namespace QL
