#include "fluxui/utility/FileUtils.h"

#include "Fnd/InteractionDriver.h"

namespace fluxui::utility::FileUtils {

void RevealAndSelectFile(const Fnd::WString& path) {
    if (!path.empty())
        Fnd::GetInteractionDriver().RevealFile(path);
}

} // namespace fluxui::utility::FileUtils
