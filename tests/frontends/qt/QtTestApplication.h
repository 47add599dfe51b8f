#pragma once
// The one QApplication of the front-end tests, offscreen unless the environment says otherwise.
class QWidget;

namespace igd::test {

void EnsureQtApplication();
// Shows the window and makes it the active one, so that focus and keys reach its widgets.
void ShowActive(QWidget& window);

} // namespace igd::test
