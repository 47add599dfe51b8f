#pragma once
// The look of every window of the desktop host: one style, palette and font, so that a dialog
// built from layouts reads as a native desktop dialog.
class QApplication;

namespace igd::qt {

void ApplyDialogStyle(QApplication& application);

} // namespace igd::qt
