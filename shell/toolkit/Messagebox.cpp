#include "fluxui/Messagebox.h"

#include <stdexcept>
#include <vector>

#include "Fnd/InteractionDriver.h"
#include "fluxcore/ApplicationName.h"
#include "fluxcore/ZString.h"

namespace fluxui::dialogs::messagebox {
namespace {

Fnd::WString OKLabel() {
    return fluxcore::Localize("$$$/fluxui/MessageBox/OK=OK");
}

} // namespace

void Messagebox(const Fnd::WString& title, const Fnd::WString& text) {
    Fnd::MessageBoxRequest request;
    request.title = title;
    request.text = text;
    request.buttons = {OKLabel()};
    request.icon = Fnd::BoxIcon::Error;
    Fnd::GetInteractionDriver().AskMessageBox(request);
}

void ShowStop(const Fnd::WString& text) {
    Fnd::MessageBoxRequest request;
    request.title = fluxcore::config::GetApplicationName();
    request.text = text;
    request.buttons = {OKLabel()};
    request.icon = Fnd::BoxIcon::Stop;
    Fnd::GetInteractionDriver().AskMessageBox(request);
}

void ShowStop(sketcher::SupplierInterface* supplier, const Fnd::WString& title, const Fnd::WString& text,
              ui::UI_Node* parent) {
    Fnd::MessageBoxRequest request;
    request.title = title;
    request.text = text;
    request.buttons = {OKLabel()};
    request.icon = Fnd::BoxIcon::Stop;
    Fnd::GetInteractionDriver().AskMessageBox(request);
}

int Messagebox(sketcher::SupplierInterface* supplier, const Fnd::WString& title, const Fnd::WString& text,
               ui::UI_Node* parent, const std::vector<Fnd::WString>& labels, int defaultButton,
               int cancelButton) {
    if (labels.empty() || labels.size() > 3)
        throw std::invalid_argument("Messagebox: a box has one to three buttons");
    const int count = static_cast<int>(labels.size());
    if (defaultButton < 0 || defaultButton >= count || cancelButton < 0 || cancelButton >= count)
        throw std::invalid_argument("Messagebox: the default and cancel buttons must be among the buttons");
    Fnd::MessageBoxRequest request;
    request.title = title;
    request.text = text;
    request.buttons = labels;
    request.defaultButton = defaultButton;
    request.icon = Fnd::BoxIcon::Question;
    const int pressed = Fnd::GetInteractionDriver().AskMessageBox(request);
    return pressed >= 0 && pressed < count ? pressed : cancelButton;
}

} // namespace fluxui::dialogs::messagebox

namespace AppFrame {
namespace {

struct Button {
    Fnd::WString label;
    int result;
};

std::vector<Button> ButtonsFor(int flags) {
    using fluxcore::Localize;
    if (flags == kMessageBoxOKCancel)
        return {{Localize("$$$/fluxui/MessageBox/OK=OK"), kResultOK},
                {Localize("$$$/fluxui/MessageBox/Cancel=Cancel"), kResultCancel}};
    if (flags == kMessageBoxYesNo)
        return {{Localize("$$$/fluxui/MessageBox/Yes=Yes"), kResultYes},
                {Localize("$$$/fluxui/MessageBox/No=No"), kResultNo}};
    return {{Localize("$$$/fluxui/MessageBox/OK=OK"), kResultOK}};
}

Fnd::BoxIcon IconFor(int icon) {
    switch (icon) {
    case 16:
        return Fnd::BoxIcon::Error;
    case 32:
        return Fnd::BoxIcon::Question;
    case 48:
        return Fnd::BoxIcon::Warning;
    case 64:
        return Fnd::BoxIcon::Information;
    default:
        return Fnd::BoxIcon::None;
    }
}

} // namespace

int MessageBoxW(const Fnd::WString& text, const Fnd::WString& title, int flags, int icon, int defaultResult) {
    const std::vector<Button> buttons = ButtonsFor(flags);
    Fnd::MessageBoxRequest request;
    request.title = title;
    request.text = text;
    request.icon = IconFor(icon);
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        request.buttons.push_back(buttons[i].label);
        if (buttons[i].result == defaultResult)
            request.defaultButton = static_cast<int>(i);
    }
    const int pressed = Fnd::GetInteractionDriver().AskMessageBox(request);
    if (pressed < 0 || pressed >= static_cast<int>(buttons.size()))
        return buttons[static_cast<std::size_t>(request.defaultButton)].result;
    return buttons[static_cast<std::size_t>(pressed)].result;
}

} // namespace AppFrame
