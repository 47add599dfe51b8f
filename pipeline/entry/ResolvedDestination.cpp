#include "pipeline/entry/ResolvedDestination.h"

#include <filesystem>
#include <system_error>

namespace IGD {

Fnd::WString ResolvedDestination(const Fnd::WString& chosen) {
    if (chosen.empty())
        return chosen;
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::weakly_canonical(Fnd::ToUTF8(chosen), error);
    return error ? chosen : Fnd::FromUTF8(resolved.string());
}

} // namespace IGD
