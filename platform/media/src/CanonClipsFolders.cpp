#include "CanonClipsFolders.h"

namespace Browse::card {

std::vector<Entry> CanonClipsFolders(const Fnd::WString& cardRoot) {
    return FamilyFolders(cardRoot, "CONTENTS", [](const Entry& folder) {
        return StartsWithNoCase(folder.name, "CLIPS") && Child(folder.path, "INDEX.MIF").has_value();
    });
}

} // namespace Browse::card
