#pragma once

namespace fluxui::controls {

// How a control places its text across its width. Layout archives store these numbers.
enum class TextAlignment { Default = 0, Left = 1, Center = 2, Right = 3 };

} // namespace fluxui::controls
