#include "pipeline/gathering/PathParts.h"

#include "Fnd/PathUtils.h"

namespace IGD {

Fnd::WString FileNameOf(Fnd::WStringView path) {
    Fnd::WString stem;
    Fnd::WString extension;
    Fnd::PathUtils::SplitPath(path, nullptr, nullptr, &stem, &extension);
    return stem + extension;
}

Fnd::WString StemOf(Fnd::WStringView path) {
    Fnd::WString stem;
    Fnd::PathUtils::SplitPath(path, nullptr, nullptr, &stem, nullptr);
    return stem;
}

Fnd::WString ExtensionOf(Fnd::WStringView path) {
    Fnd::WString extension;
    Fnd::PathUtils::SplitPath(path, nullptr, nullptr, nullptr, &extension);
    return extension;
}

Fnd::WString DirectoryOf(Fnd::WStringView path) {
    Fnd::WString drive;
    Fnd::WString directory;
    Fnd::PathUtils::SplitPath(path, &drive, &directory, nullptr, nullptr);
    return drive + directory;
}

} // namespace IGD
