#include "AppFrame/ColorManager.h"

#include <stdexcept>

namespace AppFrame {

fluxui::sketcher::ColorRGBA ColorManager::GetColor(ColorName name) {
    switch (name) {
    case kColor_PanelBackground:
    case kColor_SettingsPaneBackground:
        return {0.196f, 0.196f, 0.196f, 1.0f};
    case kColor_PanelDivider:
        return {0.118f, 0.118f, 0.118f, 1.0f};
    case kColor_PanelText:
        return {0.8f, 0.8f, 0.8f, 1.0f};
    case kColor_DisabledText:
        return {0.5f, 0.5f, 0.5f, 1.0f};
    case kColor_SectionOutline:
        return {0.09f, 0.09f, 0.09f, 1.0f};
    }
    throw std::invalid_argument("ColorManager: no such colour");
}

} // namespace AppFrame

namespace fluxui::ui {

sketcher::ColorRGBA GetColor(int number) {
    const bool listed =
        (number >= AppFrame::kColor_PanelBackground && number <= AppFrame::kColor_DisabledText) ||
        number == AppFrame::kColor_SectionOutline || number == AppFrame::kColor_SettingsPaneBackground;
    if (!listed)
        throw std::invalid_argument("GetColor: no such colour");
    return AppFrame::ColorManager::GetColor(static_cast<AppFrame::ColorName>(number));
}

} // namespace fluxui::ui

namespace fluxui::skins::core::utilities {

int GetDividerColorID(int skin) {
    return AppFrame::kColor_PanelDivider;
}

} // namespace fluxui::skins::core::utilities
