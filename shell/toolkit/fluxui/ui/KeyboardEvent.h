#pragma once
#include <cstdint>

namespace fluxui::ui {

enum class Key { Other, Escape, Return, Tab, Character };

enum KeyModifier : std::uint32_t {
    kModifierNone = 0,
    kModifierShift = 1,
    kModifierControl = 2,
    kModifierAlt = 4,
    kModifierCommand = 8,
};

struct KeyboardEvent {
    Key key = Key::Other;
    char16_t character = 0; // for Key::Character
    std::uint32_t modifiers = kModifierNone;
};

} // namespace fluxui::ui
