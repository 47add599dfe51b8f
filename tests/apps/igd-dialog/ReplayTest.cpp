// The replay language, and a replay worked against the settings pane in a window: steps act on
// the controls the person sees, and a step naming a control that is not there fails by name.
#include <QApplication>
#include <QEventLoop>
#include <gtest/gtest.h>

#include "IGD/SettingsPanePreview.h"
#include "IgdQt/QtRunLoop.h"
#include "Proj/PreferenceStore.h"
#include "QL/FilePresetService.h"
#include "ReplayControls.h"
#include "ReplayEngine.h"
#include "WindowSupport.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_Popup.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "frontends/qt/QtTestApplication.h"
#include "support/ScopedIgdHome.h"

namespace igd::test {
namespace {

using dialog::ParseReplayScript;
using dialog::ReplayScriptError;
using dialog::StepKind;

TEST(ReplayScript, ReadsEachStepWithItsLineAndWords) {
    const auto steps = ParseReplayScript("# a comment\n"
                                         "ingest\n"
                                         "\n"
                                         "  tick  C0001 (2)  \n"
                                         "set VerifyPopup MD5 comparison\n"
                                         "press PresetPopup@2\n"
                                         "answer Yes\n"
                                         "wait-batch\n");
    ASSERT_EQ(steps.size(), 6u);
    EXPECT_EQ(steps[0].kind, StepKind::Ingest);
    EXPECT_EQ(steps[0].line, 2);
    EXPECT_EQ(steps[1].kind, StepKind::Tick);
    EXPECT_EQ(steps[1].text, "C0001 (2)");
    EXPECT_EQ(steps[2].control, "VerifyPopup");
    EXPECT_EQ(steps[2].text, "MD5 comparison");
    EXPECT_EQ(steps[3].control, "PresetPopup@2");
    EXPECT_EQ(steps[4].text, "Yes");
    EXPECT_EQ(steps[5].kind, StepKind::WaitBatch);
    EXPECT_EQ(steps[5].line, 8);
}

TEST(ReplayScript, RefusesAMisspeltOrIncompleteStepNamingItsLine) {
    const std::pair<const char*, int> wrong[] = {
        {"ingest\npres ok\n", 2},          // unknown step
        {"set VerifyPopup\n", 1},          // a value is missing
        {"press two words\n", 1},          // one control only
        {"\n\nquit now\n", 3},             // quit takes nothing
        {"screenshot\n", 1},               // a file is missing
    };
    for (const auto& [script, line] : wrong) {
        try {
            ParseReplayScript(script);
            ADD_FAILURE() << "accepted: " << script;
        } catch (const ReplayScriptError& error) {
            EXPECT_EQ(error.Line(), line) << script;
        }
    }
}

class ReplayOnSettings : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureQtApplication();
        runLoop_ = qt::QtRunLoop::Install();
        Proj::InstallPreferenceStore();
        QL::InstallFilePresetService();
        preview_ = IGD::BuildSettingsPanePreview(360.0f, 640.0f);
        window_ = std::make_unique<dialog::PaneWindow>(preview_.pane, QStringLiteral("Ingest: options"));
    }
    void TearDown() override {
        window_.reset();
        preview_ = {};
        Fnd::SetRunLoop(nullptr);
    }

    // Plays script to its end and answers the engine's status and failure.
    std::pair<int, std::string> Play(const std::string& script) {
        dialog::ReplayHost host;
        host.tree = [this] { return preview_.pane.get(); };
        host.widget = [this] { return window_->Widget(); };
        dialog::ReplayOptions options;
        options.controlLimitMs = 200;
        options.boxLimitMs = 200;
        QEventLoop loop;
        int status = -1;
        dialog::ReplayEngine engine(ParseReplayScript(script), host, options, [&](int code) {
            status = code;
            loop.quit();
        });
        engine.Start();
        loop.exec();
        return {status, engine.Failure()};
    }

    template <typename Control>
    Control& Find(const std::string& reference) {
        auto* control = dynamic_cast<Control*>(dialog::FindControl(*preview_.pane, reference));
        if (!control)
            throw std::runtime_error("no " + reference);
        return *control;
    }

    ScopedIgdHome home_;
    std::shared_ptr<qt::QtRunLoop> runLoop_;
    IGD::SettingsPanePreview preview_;
    std::unique_ptr<dialog::PaneWindow> window_;
};

TEST_F(ReplayOnSettings, StepsWorkCheckboxesPopupsAndEditsAsThePersonWould) {
    const auto [status, failure] = Play("set VerifyPopup File size comparison\n"
                                        "type AddSubfolderTextEdit@1 Day 1\n"
                                        "set PresetPopup@3 Camera roll\n"
                                        "set AddSubfolderCheckbox off\n");
    ASSERT_EQ(status, 0) << failure;
    EXPECT_EQ(Find<fluxui::controls::UI_Popup>("VerifyPopup").GetValueString(), u"File size comparison");
    EXPECT_FALSE(Find<fluxui::controls::UI_Checkbox>("AddSubfolderCheckbox").IsChecked());
    EXPECT_EQ(Find<fluxui::controls::UI_Popup>("PresetPopup@3").GetValueString(), u"Camera roll");
    EXPECT_EQ(Find<fluxui::controls::UI_TextEdit>("AddSubfolderTextEdit").GetValue(), u"Day 1");
}

TEST_F(ReplayOnSettings, AStepFailsNamingTheControlAndItsLine) {
    const std::pair<const char*, const char*> wrong[] = {
        {"dump\npress NoSuchButton\n", "line 2 (press): no control \"NoSuchButton\""},
        {"set VerifyPopup Telepathy\n", "has no row \"Telepathy\""},
        {"set PresetPopup@9 Production\n", "no control \"PresetPopup@9\""},
        {"set VerifyCheckbox maybe\n", "takes on or off"},
        {"answer OK\n", "no message box came"},
        {"set ConcatenateTextEdit late\n", "\"ConcatenateTextEdit\" is disabled"},
    };
    for (const auto& [script, expected] : wrong) {
        const auto [status, failure] = Play(script);
        EXPECT_EQ(status, 1) << script;
        EXPECT_NE(failure.find(expected), std::string::npos) << failure;
    }
}

} // namespace
} // namespace igd::test
