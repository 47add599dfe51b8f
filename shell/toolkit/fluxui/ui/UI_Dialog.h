#pragma once
#include <functional>
#include <memory>

#include "fluxui/controls/UI_Button.h"
#include "fluxui/ui/OS_Dialog.h"

namespace fluxui::ui {

inline constexpr int kDialogResponseCancel = 0;
inline constexpr int kDialogResponseOK = 1;

using PostCloseFunction = std::function<void(int response)>;
using PostCloseFunctionPtr = std::shared_ptr<PostCloseFunction>;

// A dialog with a response, a cancel button that Escape and the close box press, and a default
// button that Return presses.
class UI_Dialog : public OS_Dialog {
public:
    UI_Dialog(sketcher::SupplierInterface* supplier, Fnd::WString title,
              fluxcore::geom::PointF scale = {1, 1}, OS_Window* parent = nullptr, unsigned flags = 0);
    const char* UI_GetClassName() const override { return "UI_Dialog"; }

    int RunModal() override;

    void SetCancelButton(controls::UI_Button* button) { cancelButton_ = button; }
    controls::UI_Button* GetCancelButton() const { return cancelButton_.get(); }
    void SetResponse(int response) { response_ = response; }
    int GetResponse() const { return response_; }
    // Ends the dialog as cancelled.
    virtual void DefaultCloseCancel();
    // Ends the dialog as confirmed (response 1).
    virtual void DefaultCloseOk();
    void SetPostCloseCallback(PostCloseFunctionPtr function) { postClose_ = std::move(function); }
    void SetPostCloseCallback(PostCloseFunction function) {
        postClose_ = std::make_shared<PostCloseFunction>(std::move(function));
    }
    // Centres the window over its parent window, if it has one.
    void Position();
    OS_Window* GetParentWindow() const { return parentWindow_; }

    bool UI_DoKeyboardEvent(UI_Node* target, const KeyboardEvent& event) override;
    void CloseByUser() override;

protected:
    // Return pressed anywhere in the dialog: presses the default button. Answers whether the key
    // was taken.
    virtual bool OnReturnKey();
    // What RunModal does once the run is over; a dialog that turns its own modal run calls it.
    void RunPostCloseCallback(int response);

private:
    void PressCancel();
    controls::UI_Button* FindDefaultButton(UI_Node& node) const;

    OS_Window* parentWindow_;
    boost::intrusive_ptr<controls::UI_Button> cancelButton_;
    PostCloseFunctionPtr postClose_;
};

} // namespace fluxui::ui
