#pragma once
// Message boxes of the toolkit. Every box is a modal run answered through the interaction driver.
#include <vector>

#include "Fnd/WString.h"

namespace fluxui::sketcher {
class SupplierInterface;
}
namespace fluxui::ui {
class UI_Node;
}

namespace fluxui::dialogs::messagebox {

// An error box with one OK button.
void Messagebox(const Fnd::WString& title, const Fnd::WString& text);

// A stop box titled with the application's name, one OK button.
void ShowStop(const Fnd::WString& text);

// A stop box with an OK button, over a parent node (or none).
void ShowStop(sketcher::SupplierInterface* supplier, const Fnd::WString& title, const Fnd::WString& text,
              ui::UI_Node* parent);

// A question box with up to three labelled buttons; answers the index of the button pressed.
// Closing the box by other means answers cancelButton.
int Messagebox(sketcher::SupplierInterface* supplier, const Fnd::WString& title, const Fnd::WString& text,
               ui::UI_Node* parent, const std::vector<Fnd::WString>& labels, int defaultButton,
               int cancelButton);

} // namespace fluxui::dialogs::messagebox

namespace AppFrame {

// Flags: 1 OK, 2 OK and Cancel, 16 Yes and No. Results: 1 OK, 2 Cancel, 32 Yes, 64 No.
// defaultResult names the result of the default button.
inline constexpr int kMessageBoxOK = 1;
inline constexpr int kMessageBoxOKCancel = 2;
inline constexpr int kMessageBoxYesNo = 16;
inline constexpr int kResultOK = 1;
inline constexpr int kResultCancel = 2;
inline constexpr int kResultYes = 32;
inline constexpr int kResultNo = 64;

int MessageBoxW(const Fnd::WString& text, const Fnd::WString& title, int flags, int icon, int defaultResult);

} // namespace AppFrame
