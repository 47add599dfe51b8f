#include <filesystem>
#include <system_error>

#include "Fnd/PathUtils.h"
#include "Mid/Utilities.h"

namespace Fnd::PathUtils {

WString ToNormalizedPath(WStringView path) {
    if (path.empty())
        return {};
    if (path.front() == u'/')
        return Mid::Utilities::NormalizePathWithoutUNC(path);
    std::error_code error;
    const auto cwd = std::filesystem::current_path(error);
    const WString base = error ? WString(u"/") : FromUTF8(cwd.native());
    return Mid::Utilities::NormalizePathWithoutUNC(CombinePaths(base, path));
}

bool IsNormalizedPath(WStringView path) {
    return !path.empty() && ToNormalizedPath(path) == path;
}

WString GetExtensionPart(WStringView path) {
    WString extension;
    SplitPath(path, nullptr, nullptr, nullptr, &extension);
    return extension;
}

WString GetFullDirectoryPart(WStringView path) {
    WString drive;
    WString directory;
    SplitPath(ToNormalizedPath(path), &drive, &directory, nullptr, nullptr);
    return drive + directory;
}

namespace Win {

WString StripUNC(WStringView path) {
    return WString(path);
}

} // namespace Win

} // namespace Fnd::PathUtils
