#include "pipeline/checks/PathListCheck.h"

#include "Mid/Utilities.h"
#include "fluxcore/ZString.h"
#include "fluxui/Messagebox.h"

namespace IGD {

bool CheckPathList(PathListTest test, const std::vector<Fnd::WString>& paths,
                   const PathListCheckTexts& texts) {
    Fnd::WString failingPath;
    if (test(paths, failingPath))
        return true;
    // The user recognises the path more easily in its clean form than as it was typed or joined.
    const Fnd::WString normalized = Mid::Utilities::NormalizePathWithoutUNC(failingPath);
    if (normalized.empty())
        fluxui::dialogs::messagebox::Messagebox(fluxcore::Localize(texts.emptyTitle),
                                                fluxcore::Localize(texts.emptyText));
    else
        fluxui::dialogs::messagebox::Messagebox(fluxcore::Localize(texts.title),
                                                fluxcore::Localize(texts.text, {normalized}));
    return false;
}

} // namespace IGD
