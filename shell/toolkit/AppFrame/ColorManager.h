#pragma once
#include "fluxui/sketcher/Sketcher.h"

namespace AppFrame {

enum ColorName {
    kColor_PanelBackground,
    kColor_PanelDivider,
    kColor_PanelText,
    kColor_DisabledText,
    // The outline around a titled option section; its number is fixed by the sections that ask.
    kColor_SectionOutline = 4000054,
    // The ground of the settings pane; the same as the panel's, under the number the pane asks for.
    kColor_SettingsPaneBackground = 277,
};

// The named colours of the application's theme.
class ColorManager {
public:
    static fluxui::sketcher::ColorRGBA GetColor(ColorName name);
};

} // namespace AppFrame

namespace fluxui::ui {

// A theme colour by number; the numbers are those of AppFrame::ColorName. An unknown number is
// a programming fault.
sketcher::ColorRGBA GetColor(int number);

} // namespace fluxui::ui

namespace fluxui::skins::core::utilities {

// The number of the divider colour for a skin; every skin of ours shares one.
int GetDividerColorID(int skin);

} // namespace fluxui::skins::core::utilities
