#pragma once
// A Qt dialog window showing a toolkit window that runs modally: the window's tree is presented
// inside, the close box and Escape go to the toolkit, and the window's size follows the dialog's.
#include <QDialog>
#include <memory>

class QEventLoop;

#include "IgdQt/NodePresenter.h"
#include "fluxui/ui/OS_Dialog.h"

namespace igd::qt {

class ToolkitDialog : public QDialog {
public:
    ToolkitDialog(fluxui::ui::OS_Dialog& window, QWidget* parent, PictureSource pictures = {});
    ~ToolkitDialog() override;

    // Shows the dialog and runs a nested event loop until the window has a close requested.
    void RunUntilClosed();
    // The same run without the nested loop, for a caller that turns its own: Show, then End once
    // the window has a close requested.
    void ShowModal();
    void End();
    NodePresenter& Presenter() const { return *presenter_; }

    // The window's close box: the toolkit decides, as for its own close box.
    void reject() override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    fluxui::ui::OS_Dialog& window_;
    fluxui::ui::UI_NodeRef keep_;
    std::unique_ptr<NodePresenter> presenter_;
    QEventLoop* loop_ = nullptr;
};

} // namespace igd::qt
