#include "IgdQt/QtInteractionDriver.h"

#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>
#include <vector>

#include "IgdQt/QtStrings.h"
#include "IgdQt/ToolkitDialog.h"
#include "fluxcore/ZString.h"
#include "fluxui/ui/OS_Dialog.h"

namespace igd::qt {
namespace {

QMessageBox::Icon ToQtIcon(Fnd::BoxIcon icon) {
    switch (icon) {
    case Fnd::BoxIcon::Information:
        return QMessageBox::Information;
    case Fnd::BoxIcon::Warning:
        return QMessageBox::Warning;
    case Fnd::BoxIcon::Error:
    case Fnd::BoxIcon::Stop:
        return QMessageBox::Critical;
    case Fnd::BoxIcon::Question:
        return QMessageBox::Question;
    case Fnd::BoxIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QString Text(std::string_view keyAndDefault, std::initializer_list<Fnd::WString> arguments = {}) {
    return ToQString(fluxcore::Localize(keyAndDefault, arguments));
}

// Without a desktop (tests, screenshots) the platform's own dialogs cannot be shown or closed.
bool CanUseNativeDialogs() {
    const QString platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

} // namespace

QtInteractionDriver::QtInteractionDriver(PictureSource pictures) : pictures_(pictures) {}
QtInteractionDriver::~QtInteractionDriver() = default;

QWidget* QtInteractionDriver::DialogParent() {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    return QApplication::activeWindow();
}

int QtInteractionDriver::AskMessageBox(const Fnd::MessageBoxRequest& request) {
    if (request.buttons.empty())
        throw std::invalid_argument("AskMessageBox: a box needs at least one button");
    QMessageBox box(DialogParent());
    box.setWindowTitle(ToQString(request.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQString(request.text));
    box.setIcon(ToQtIcon(request.icon));
    std::vector<QAbstractButton*> buttons;
    // One role for all keeps the buttons in the order the request gives.
    for (const Fnd::WString& label : request.buttons)
        buttons.push_back(box.addButton(ToQString(label), QMessageBox::ActionRole));
    const auto defaultIndex = static_cast<std::size_t>(request.defaultButton);
    if (defaultIndex < buttons.size())
        box.setDefaultButton(static_cast<QPushButton*>(buttons[defaultIndex]));
    if (buttons.size() == 1)
        box.setEscapeButton(buttons.front());
    box.exec();
    for (std::size_t i = 0; i < buttons.size(); ++i)
        if (box.clickedButton() == buttons[i])
            return static_cast<int>(i);
    return request.defaultButton;
}

Fnd::ExistingPathAnswer QtInteractionDriver::AskExistingPath(const Fnd::ExistingPathQuestion& question) {
    QMessageBox box(DialogParent());
    box.setWindowTitle(Text("$$$/igd/ExistingPath/Title=Item Already Exists"));
    box.setIcon(QMessageBox::Warning);
    box.setTextFormat(Qt::PlainText);
    if (question.onlyInCopyList)
        box.setText(question.isDirectory
                        ? Text("$$$/igd/ExistingPath/QueuedFolder=A waiting copy will create the folder @0.",
                               {question.target})
                        : Text("$$$/igd/ExistingPath/QueuedFile=A waiting copy will write the file @0.",
                               {question.target}));
    else
        box.setText(question.isDirectory
                        ? Text("$$$/igd/ExistingPath/Folder=The folder @0 already exists.", {question.target})
                        : Text("$$$/igd/ExistingPath/File=The file @0 already exists.", {question.target}));
    box.setInformativeText(Text("$$$/igd/ExistingPath/Source=Copying from @0.", {question.source}));
    QAbstractButton* skip = box.addButton(Text("$$$/igd/ExistingPath/Skip=Skip"), QMessageBox::ActionRole);
    QAbstractButton* keepBoth =
        box.addButton(Text("$$$/igd/ExistingPath/KeepBoth=Keep Both"), QMessageBox::ActionRole);
    QAbstractButton* replace =
        box.addButton(Text("$$$/igd/ExistingPath/Replace=Replace"), QMessageBox::ActionRole);
    QAbstractButton* cancel = nullptr;
    if (question.offerCancel) {
        cancel = box.addButton(Text("$$$/fluxui/MessageBox/Cancel=Cancel"), QMessageBox::RejectRole);
        box.setEscapeButton(cancel);
    }
    // Keeping what exists loses nothing, so it is what Return does.
    box.setDefaultButton(static_cast<QPushButton*>(skip));
    QCheckBox* applyToAll = nullptr;
    if (question.offerApplyToAll) {
        applyToAll = new QCheckBox(Text("$$$/igd/ExistingPath/ApplyToAll=Do this for all conflicts"));
        box.setCheckBox(applyToAll);
    }
    box.exec();
    Fnd::ExistingPathAnswer answer;
    QAbstractButton* clicked = box.clickedButton();
    answer.action = clicked == skip ? 1 : clicked == keepBoth ? 2 : clicked == replace ? 3 : 0;
    answer.proceed = answer.action != 0;
    answer.applyToAll = answer.proceed && applyToAll && applyToAll->isChecked();
    return answer;
}

void QtInteractionDriver::RunModal(Fnd::IModalSession& session) {
    auto* window = dynamic_cast<fluxui::ui::OS_Dialog*>(
        fluxui::ui::OS_Window::UI_GetWindow(session.ModalPlatformWindow()));
    if (!window) {
        // Nothing to show: closed as the person would close it, so nothing is confirmed unasked.
        session.CloseByUser();
        return;
    }
    ToolkitDialog dialog(*window, DialogParent(), pictures_);
    dialog.RunUntilClosed();
}

void QtInteractionDriver::BeginModal(Fnd::IModalSession& session) {
    auto* window = dynamic_cast<fluxui::ui::OS_Dialog*>(
        fluxui::ui::OS_Window::UI_GetWindow(session.ModalPlatformWindow()));
    if (!window)
        return;
    auto dialog = std::make_unique<ToolkitDialog>(*window, DialogParent(), pictures_);
    dialog->ShowModal();
    turned_[&session] = std::move(dialog);
}

void QtInteractionDriver::ModalDuring(Fnd::IModalSession& session) {
    if (!turned_.count(&session)) {
        // Nothing shown, so nobody can answer: closed as the person would close it.
        session.CloseByUser();
        return;
    }
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void QtInteractionDriver::EndModal(Fnd::IModalSession& session) {
    const auto found = turned_.find(&session);
    if (found == turned_.end())
        return;
    const std::unique_ptr<ToolkitDialog> dialog = std::move(found->second);
    turned_.erase(found);
    dialog->End();
}

bool QtInteractionDriver::AskFolder(const Fnd::FolderQuestion& question, Fnd::WString& chosen) {
    QFileDialog dialog(DialogParent(), ToQString(question.title), ToQString(question.defaultDirectory));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setOption(QFileDialog::DontUseNativeDialog, !CanUseNativeDialogs());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    chosen = FromQString(dialog.selectedFiles().front());
    return true;
}

} // namespace igd::qt
