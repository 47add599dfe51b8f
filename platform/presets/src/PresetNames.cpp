#include "QL/PresetNames.h"

#include <algorithm>

#include "Fnd/PathUtils.h"
#include "QL/PresetFileTypes.h"

namespace QL {
namespace {

// The filesystem's limit on one name, in bytes of UTF-8.
constexpr std::size_t kMaxFileNameBytes = 255;

} // namespace

std::string PresetNameProblem(const Fnd::WString& name, _QLPresetCategory category) {
    if (name.empty())
        return "it is empty";
    if (name.front() == u'.')
        return "it starts with \".\"";
    for (char16_t unit : name) {
        if (unit < 0x20 || unit == 0x7F)
            return "it holds a control character";
        // The characters no file name may hold are the file name rule's, so that a preset name
        // and any other file name the user types are judged alike.
        if (Fnd::WString one(1, unit); Fnd::PathUtils::RemoveIllegalFileNameCharacters(one))
            return std::string("it holds \"") + static_cast<char>(unit) + "\"";
    }
    if (!Fnd::PathUtils::IsValidFileName(name))
        return "it cannot name a file";
    if (Fnd::ToUTF8(PresetFileName(name, category)).size() > kMaxFileNameBytes)
        return "it is too long for a file name";
    return {};
}

bool IsUsablePresetName(const Fnd::WString& name, _QLPresetCategory category) {
    return PresetNameProblem(name, category).empty();
}

Fnd::WString PresetFileName(const Fnd::WString& name, _QLPresetCategory category) {
    return name + (category == kQLPresetCategoryMetadata ? GetMetadataPresetFileExtension()
                                                         : GetRenamePresetFileExtension());
}

Fnd::WString NumberedPresetName(const Fnd::WString& name, unsigned number) {
    return name + u" (" + Fnd::ToDecimal(number) + u")";
}

bool PresetNameLess(const Fnd::WString& a, const Fnd::WString& b) {
    return Fnd::LessIgnoringASCIICase(a, b);
}

} // namespace QL
