// The Qt driver answers with real dialogs. A timer plays the person: it finds the dialog in
// front and works it as a person would.
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <gtest/gtest.h>
#include <thread>

#include "Fnd/InteractionDriver.h"
#include "Fnd/RunLoop.h"
#include "IgdQt/QtInteractionDriver.h"
#include "IgdQt/QtRunLoop.h"
#include "IgdQt/ToolkitDialog.h"
#include "QtTestApplication.h"
#include "fluxui/Messagebox.h"
#include "fluxui/dialogs/SimpleInputBox.h"

namespace igd::test {
namespace {

class QtDriverTest : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureQtApplication();
        Fnd::SetInteractionDriver(std::make_shared<igd::qt::QtInteractionDriver>());
    }
    void TearDown() override { Fnd::SetInteractionDriver(nullptr); }

    // Runs action on the modal dialog once it is up.
    static void WhenModal(std::function<void(QWidget&)> action) {
        auto* timer = new QTimer;
        timer->setInterval(10);
        QObject::connect(timer, &QTimer::timeout, [timer, action] {
            if (QWidget* modal = QApplication::activeModalWidget()) {
                timer->stop();
                timer->deleteLater();
                action(*modal);
            }
        });
        timer->start();
    }

    template <typename T> static T* Find(QWidget& dialog, const QString& text) {
        for (T* candidate : dialog.findChildren<T*>())
            if (candidate->text() == text)
                return candidate;
        return nullptr;
    }
};

TEST_F(QtDriverTest, MessageBoxAnswersTheButtonPressedInOrder) {
    WhenModal([](QWidget& box) {
        auto* messageBox = qobject_cast<QMessageBox*>(&box);
        ASSERT_NE(messageBox, nullptr);
        EXPECT_EQ(messageBox->text(), QStringLiteral("Replace the preset?"));
        EXPECT_EQ(messageBox->defaultButton()->text(), QStringLiteral("Keep"));
        Find<QPushButton>(box, QStringLiteral("Replace"))->click();
    });
    const int pressed = fluxui::dialogs::messagebox::Messagebox(
        nullptr, u"Presets", u"Replace the preset?", nullptr, {u"Keep", u"Replace", u"Cancel"}, 0, 2);
    EXPECT_EQ(pressed, 1);

    WhenModal([](QWidget& box) { Find<QPushButton>(box, QStringLiteral("No"))->click(); });
    EXPECT_EQ(
        AppFrame::MessageBoxW(u"Continue?", u"Ingest", AppFrame::kMessageBoxYesNo, 32, AppFrame::kResultYes),
        AppFrame::kResultNo);
}

TEST_F(QtDriverTest, ExistingPathQuestionAnswersTheActionAndApplyToAll) {
    WhenModal([](QWidget& box) {
        ASSERT_NE(Find<QPushButton>(box, QStringLiteral("Cancel")), nullptr);
        box.findChild<QCheckBox*>()->setChecked(true);
        Find<QPushButton>(box, QStringLiteral("Replace"))->click();
    });
    Fnd::ExistingPathQuestion question;
    question.source = u"/cards/A001/clip.mov";
    question.target = u"/media/day1/clip.mov";
    Fnd::ExistingPathAnswer answer = Fnd::GetInteractionDriver().AskExistingPath(question);
    EXPECT_TRUE(answer.proceed);
    EXPECT_EQ(answer.action, 3);
    EXPECT_TRUE(answer.applyToAll);

    question.offerApplyToAll = false;
    WhenModal([](QWidget& box) {
        EXPECT_EQ(box.findChild<QCheckBox*>(), nullptr);
        Find<QPushButton>(box, QStringLiteral("Cancel"))->click();
    });
    answer = Fnd::GetInteractionDriver().AskExistingPath(question);
    EXPECT_FALSE(answer.proceed) << "Cancel gives up the whole request";
    EXPECT_FALSE(answer.applyToAll);
}

TEST_F(QtDriverTest, InputBoxRunsAsAToolkitDialogInANestedLoop) {
    WhenModal([](QWidget& dialog) {
        ASSERT_NE(dynamic_cast<igd::qt::ToolkitDialog*>(&dialog), nullptr);
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Save Preset"));
        auto* edit = dialog.findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr);
        EXPECT_EQ(edit->text(), QStringLiteral("Untitled"));
        // The focus within the dialog, whether or not the platform has activated its window.
        EXPECT_EQ(dialog.focusWidget(), edit) << "the person starts typing in the field";
        edit->selectAll();
        QTest::keyClicks(edit, QStringLiteral("Day 2 cards"));
        QTest::keyClick(edit, Qt::Key_Return); // ends the edit
        QTest::keyClick(edit, Qt::Key_Return); // then presses the default button
    });
    Fnd::WString text = u"Untitled";
    ASSERT_TRUE(fluxui::dialogs::SimpleInputBox::Ask(u"Save Preset", u"Preset name:", text));
    EXPECT_EQ(text, u"Day 2 cards");

    // Escape presses the dialog's cancel button: nothing is taken.
    WhenModal([](QWidget& dialog) {
        auto* edit = dialog.findChild<QLineEdit*>();
        edit->setFocus();
        QTest::keyClicks(edit, QStringLiteral("x"));
        QTest::keyClick(edit, Qt::Key_Escape); // ends the edit
        QTest::keyClick(edit, Qt::Key_Escape); // then cancels the dialog
    });
    text = u"Kept";
    EXPECT_FALSE(fluxui::dialogs::SimpleInputBox::Ask(u"Save Preset", u"Preset name:", text));
    EXPECT_EQ(text, u"Kept");
}

TEST_F(QtDriverTest, ClosingTheWindowGoesThroughTheToolkitsCancel) {
    boost::intrusive_ptr<fluxui::dialogs::SimpleInputBox> box(
        new fluxui::dialogs::SimpleInputBox(nullptr, u"Rename", u"Name:", u"A"));
    int cancels = 0;
    box->GetCancelButtonView().NotifyWhenChangedInteractively(
        [&cancels, raw = box.get()](const fluxui::controls::UI_ControlMessage&) {
            ++cancels;
            raw->DefaultCloseCancel();
        });
    WhenModal([](QWidget& dialog) { dialog.close(); });
    EXPECT_EQ(box->RunModal(), fluxui::ui::kDialogResponseCancel);
    EXPECT_EQ(cancels, 1);
    EXPECT_GT(box->UI_GetGlobalStructureRect().width, 0) << "the window's place is handed back";
}

TEST(QtRunLoopTest, PostedWorkRunsOnQtsLoopUrgentFirst) {
    EnsureQtApplication();
    Fnd::GetDefaultQueue().Post([] {}, false);
    std::vector<std::string> ran;
    Fnd::GetDefaultQueue().Post([&ran] { ran.push_back("before install"); }, false);
    auto loop = igd::qt::QtRunLoop::Install();
    Fnd::GetRunLoop().Post([&ran] { ran.push_back("normal 1"); }, false);
    Fnd::GetRunLoop().Post([&ran] { ran.push_back("normal 2"); }, false);
    std::thread worker([&ran] {
        Fnd::GetRunLoop().Post(
            [&ran] {
                EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
                ran.push_back("urgent from a worker");
            },
            true);
    });
    worker.join();
    QCoreApplication::processEvents();
    Fnd::SetRunLoop(nullptr);
    EXPECT_EQ(ran,
              (std::vector<std::string>{"before install", "urgent from a worker", "normal 1", "normal 2"}));
    EXPECT_EQ(Fnd::GetDefaultQueue().Pending(), 0u);
}

} // namespace
} // namespace igd::test
