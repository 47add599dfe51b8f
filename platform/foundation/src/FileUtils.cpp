#include "fluxcore/FileUtils.h"

#include <stdexcept>

#include "FileNameCharacters.h"

namespace fluxcore::utility::FileUtils {

bool ReplaceIllegalFileNameCharacters(Fnd::WString& name, Fnd::WChar replacement) {
    // An illegal replacement would answer a name that is still unusable while claiming to have
    // repaired it.
    if (Fnd::detail::IsIllegalFileNameCharacter(replacement))
        throw std::invalid_argument("ReplaceIllegalFileNameCharacters: the replacement is itself illegal");
    bool replaced = false;
    for (auto& c : name) {
        if (Fnd::detail::IsIllegalFileNameCharacter(c)) {
            c = replacement;
            replaced = true;
        }
    }
    return replaced;
}

Fnd::WString GetParentPath(Fnd::WStringView path) {
    // A trailing separator names the same entry: the parent of "/a/b/" is "/a".
    const auto nameEnd = path.find_last_not_of(u'/');
    if (nameEnd == Fnd::WStringView::npos)
        return {}; // "" or the root: nothing holds it
    const auto separator = path.rfind(u'/', nameEnd);
    if (separator == Fnd::WStringView::npos)
        return u"."; // an entry of the current folder, as Fnd::PathUtils::FolderOf answers
    const auto parentEnd = path.find_last_not_of(u'/', separator);
    if (parentEnd == Fnd::WStringView::npos)
        return Fnd::WString(1, u'/');
    return Fnd::WString(path.substr(0, parentEnd + 1));
}

} // namespace fluxcore::utility::FileUtils
