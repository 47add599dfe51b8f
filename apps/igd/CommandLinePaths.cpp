#include "CommandLinePaths.h"

#include <unistd.h>

#include "Fnd/PathUtils.h"
#include "Mid/Utilities.h"

namespace igd {

Fnd::WString AbsolutePath(const std::string& path) {
    Fnd::WString wide = Fnd::FromUTF8(path);
    if (!wide.empty() && wide.front() != u'/') {
        std::string cwd(4096, '\0');
        if (getcwd(cwd.data(), cwd.size()) != nullptr)
            wide = Fnd::PathUtils::CombinePaths(Fnd::FromUTF8(cwd.c_str()), wide);
    }
    return Mid::Utilities::NormalizePathWithoutUNC(wide);
}

} // namespace igd
