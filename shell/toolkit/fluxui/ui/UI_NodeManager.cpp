#include "fluxui/ui/UI_NodeManager.h"

namespace fluxui::ui {

UI_NodeManager& UI_NodeManager::Get(bool create) {
    static UI_NodeManager* manager = new UI_NodeManager;
    return *manager;
}

} // namespace fluxui::ui
