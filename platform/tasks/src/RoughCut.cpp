#include "QL/RoughCut.h"

#include "Fnd/PathUtils.h"

namespace QL {

bool IsRoughCutFileExtension(const Fnd::WString& path) {
    Fnd::WString drive, directory, stem, extension;
    Fnd::PathUtils::SplitPath(path, &drive, &directory, &stem, &extension);
    return Fnd::EqualsIgnoringASCIICase(extension, kRoughCutExtension) ||
           Fnd::EqualsIgnoringASCIICase(extension, kFcpFormatRoughCutExtension);
}

} // namespace QL
