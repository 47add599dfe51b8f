#include <gtest/gtest.h>

#include "Fnd/RunLoop.h"
#include "fluxui/Messagebox.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/dialogs/SimpleInputBox.h"
#include "fluxui/ui/UI_Dialog.h"
#include "support/ScriptedInteractionDriver.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace igd::test {
namespace {

using fluxui::controls::UI_ControlMessage;
using fluxui::controls::UI_TextButton;
using fluxui::ui::Key;
using fluxui::ui::OS_Window;
using fluxui::ui::UI_Dialog;

// A dialog with OK (default) and Cancel buttons, as the views build them.
struct OkCancelDialog {
    OkCancelDialog()
        : dialog(Make<UI_Dialog>(nullptr, u"Options")), ok(Make<UI_TextButton>(u"OK")),
          cancel(Make<UI_TextButton>(u"Cancel")) {
        dialog->ChildPushBack(ok);
        dialog->ChildPushBack(cancel);
        ok->SetDefaultAppearance(true);
        dialog->SetCancelButton(cancel.get());
        ok->NotifyWhenChanged([d = dialog.get()](const UI_ControlMessage&) {
            d->SetResponse(fluxui::ui::kDialogResponseOK);
            d->PostClose();
        });
        cancel->NotifyWhenChanged([d = dialog.get()](const UI_ControlMessage&) { d->DefaultCloseCancel(); });
    }
    boost::intrusive_ptr<UI_Dialog> dialog;
    boost::intrusive_ptr<UI_TextButton> ok;
    boost::intrusive_ptr<UI_TextButton> cancel;
};

UI_Dialog& DialogOf(Fnd::IModalSession& session) {
    OS_Window* window = OS_Window::UI_GetWindow(session.ModalPlatformWindow());
    auto* dialog = dynamic_cast<UI_Dialog*>(window);
    if (!dialog)
        throw std::logic_error("the session is no UI_Dialog");
    return *dialog;
}

TEST(ModalRun, RunsThroughTheDriverAndAnswersTheResponse) {
    ScopedInteractionDriver ui;
    OkCancelDialog d;
    std::vector<int> closed;
    d.dialog->SetPostCloseCallback([&](int response) { closed.push_back(response); });
    ui->QueueModalAction([&](Fnd::IModalSession& session) {
        EXPECT_EQ(&DialogOf(session), d.dialog.get());
        EXPECT_TRUE(d.dialog->IsRunningModal());
        d.ok->Press();
    });
    EXPECT_EQ(d.dialog->RunModal(), fluxui::ui::kDialogResponseOK);
    EXPECT_FALSE(d.dialog->IsRunningModal());
    EXPECT_EQ(closed, std::vector<int>{1});
    EXPECT_EQ(ui->ModalTitles(), std::vector<Fnd::WString>{u"Options"});
}

TEST(ModalRun, EscapePressesCancelAndReturnPressesTheDefault) {
    ScopedInteractionDriver ui;
    OkCancelDialog d;
    int cancels = 0;
    d.cancel->NotifyWhenChangedInteractively([&](const UI_ControlMessage&) { ++cancels; });

    ui->QueueModalAction([&](Fnd::IModalSession&) { d.dialog->DispatchKeyboardEvent({Key::Escape}); });
    d.dialog->SetResponse(1);
    EXPECT_EQ(d.dialog->RunModal(), fluxui::ui::kDialogResponseCancel);
    EXPECT_EQ(cancels, 1);
    ui->QueueModalAction([&](Fnd::IModalSession&) { d.dialog->DispatchKeyboardEvent({Key::Return}); });
    EXPECT_EQ(d.dialog->RunModal(), fluxui::ui::kDialogResponseOK);
}

TEST(ModalRun, AClosePostedFromQueuedWorkEndsTheRun) {
    ScopedInteractionDriver ui;
    OkCancelDialog d;
    ui->QueueModalAction([&](Fnd::IModalSession& session) {
        Fnd::GetRunLoop().Post(
            [&] {
                d.dialog->SetResponse(1);
                d.dialog->PostClose();
            },
            false);
        EXPECT_FALSE(session.IsCloseRequested());
    });
    EXPECT_EQ(d.dialog->RunModal(), 1);
}

TEST(ModalRun, ADialogCannotRunInsideItsOwnRunAndWithoutADriverIsCancelled) {
    OkCancelDialog d;
    d.dialog->SetResponse(1);
    EXPECT_EQ(d.dialog->RunModal(), fluxui::ui::kDialogResponseCancel);
    ScopedInteractionDriver ui;
    ui->QueueModalAction([&](Fnd::IModalSession&) {
        EXPECT_THROW(d.dialog->RunModal(), std::logic_error);
        d.cancel->Press();
    });
    EXPECT_EQ(d.dialog->RunModal(), fluxui::ui::kDialogResponseCancel);
}

TEST(DialogPlacement, CentresOverItsParentAndKeepsItsMinimumSize) {
    auto parent = Make<OS_Window>();
    parent->UI_SetGlobalStructureRect({100, 100, 800, 600});
    auto dialog = Make<UI_Dialog>(nullptr, u"Child", fluxcore::geom::PointF{1, 1}, parent.get());
    dialog->SetMinimumSize({300, 200});
    dialog->UI_SetGlobalStructureRect({0, 0, 400, 300});
    dialog->Position();
    EXPECT_EQ(dialog->UI_GetGlobalStructureRect(), (fluxcore::geom::RectI{300, 250, 400, 300}));
    dialog->SetContentSize({100, 500});
    EXPECT_EQ(dialog->UI_GetLocalRect(), (fluxcore::geom::RectI{0, 0, 300, 500}));
    EXPECT_EQ(OS_Window::UI_GetWindow(dialog->GetPlatformWindow()), dialog.get());
}

TEST(SimpleInputBox, StartsInTheFieldAndASecondReturnAnswersWhatWasTyped) {
    ScopedInteractionDriver ui;
    Fnd::WString name = u"Preset 1";
    ui->QueueModalAction([](Fnd::IModalSession& session) {
        auto& box = dynamic_cast<fluxui::dialogs::SimpleInputBox&>(DialogOf(session));
        EXPECT_EQ(box.GetLabel(), u"Name:");
        EXPECT_EQ(box.GetTextEdit().GetValue(), u"Preset 1");
        EXPECT_TRUE(box.GetTextEdit().UI_HasKeyboardFocus());
        box.GetTextEdit().TypeText(u"Dailies");
        box.DispatchKeyboardEvent({Key::Return}); // ends the edit in the field
        box.DispatchKeyboardEvent({Key::Return}); // nothing is being edited: it reaches the dialog
        EXPECT_TRUE(session.IsCloseRequested());
    });
    EXPECT_TRUE(fluxui::dialogs::SimpleInputBox::Ask(u"Save Preset As", u"Name:", name));
    EXPECT_EQ(name, u"Dailies");
}

TEST(Messagebox, AnswersTheIndexOfTheLabelledButton) {
    ScopedInteractionDriver ui;
    namespace mb = fluxui::dialogs::messagebox;
    ui->QueueBoxAnswer(2);
    EXPECT_EQ(mb::Messagebox(nullptr, u"Rough cut", u"Create a rough cut?", nullptr,
                             {u"Yes", u"No", u"Cancel"}, 0, 2),
              2);
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(ui->Boxes()[0].buttons.size(), 3u);
    EXPECT_EQ(ui->Boxes()[0].defaultButton, 0);
    EXPECT_THROW(mb::Messagebox(nullptr, u"t", u"x", nullptr, {}, 0, 0), std::invalid_argument);

    ui->QueueBoxAnswer(0);
    mb::ShowStop(nullptr, u"Ingest", u"No destination.", nullptr);
    EXPECT_EQ(ui->Boxes().back().icon, Fnd::BoxIcon::Stop);
    EXPECT_EQ(ui->Boxes().back().title, u"Ingest");
}

} // namespace
} // namespace igd::test
