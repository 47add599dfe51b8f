#include <gtest/gtest.h>

#include "AppFrame/Commander.h"
#include "AppFrame/ShortcutManager.h"

namespace igd::test {
namespace {

using AppFrame::Command;
using AppFrame::Commander;
using AppFrame::CommandStatus;
using AppFrame::ShortcutManager;
using fluxui::ui::Key;
using fluxui::ui::KeyboardEvent;

// Answers the commands it is given; records its duty changes and what it ran.
class TestCommander : public Commander {
public:
    TestCommander(std::string name, std::vector<std::string>& log, Commander* parent = nullptr,
                  std::vector<int> handles = {}, bool enabled = true)
        : Commander(parent), name_(std::move(name)), log_(log), handles_(std::move(handles)),
          enabled_(enabled) {}
    ~TestCommander() override {
        if (GetTarget() == this)
            SetTarget(nullptr);
    }

protected:
    void NowOnDuty() override { log_.push_back(name_ + " on"); }
    void NowOffDuty() override { log_.push_back(name_ + " off"); }
    bool QueryCommand(const Command& command, CommandStatus& status) override {
        if (!Handles(command))
            return false;
        status.enabled = enabled_;
        return true;
    }
    bool ExecuteCommand(const Command& command) override {
        if (!Handles(command))
            return false;
        log_.push_back(name_ + " ran " + std::to_string(command.GetID()));
        return true;
    }

private:
    bool Handles(const Command& command) const {
        return std::find(handles_.begin(), handles_.end(), command.GetID()) != handles_.end();
    }
    std::string name_;
    std::vector<std::string>& log_;
    std::vector<int> handles_;
    bool enabled_;
};

class CommandTest : public testing::Test {
protected:
    void SetUp() override {
        ShortcutManager::Instance().Clear();
        Commander::SetTarget(nullptr);
    }
    void TearDown() override {
        Commander::SetTarget(nullptr);
        ShortcutManager::Instance().Clear();
    }
    std::vector<std::string> log;
};

TEST_F(CommandTest, ACommandGoesFromTheTargetUpUntilOneAnswers) {
    TestCommander app("app", log, nullptr, {1, 2});
    TestCommander dialog("dialog", log, &app, {2});
    TestCommander field("field", log, &dialog);
    Commander::SetTarget(&field);
    log.clear();
    EXPECT_TRUE(Commander::ExecuteFromTarget(Command(2)));
    EXPECT_TRUE(Commander::ExecuteFromTarget(Command(1)));
    EXPECT_FALSE(Commander::ExecuteFromTarget(Command(3)));
    EXPECT_EQ(log, (std::vector<std::string>{"dialog ran 2", "app ran 1"}));
}

TEST_F(CommandTest, OnlyCommandersThatLeaveOrJoinTheChainChangeDuty) {
    TestCommander app("app", log);
    TestCommander left("left", log, &app);
    TestCommander right("right", log, &app);
    Commander::SetTarget(&left);
    EXPECT_EQ(log, (std::vector<std::string>{"app on", "left on"}));
    log.clear();
    Commander::SetTarget(&right);
    EXPECT_EQ(log, (std::vector<std::string>{"left off", "right on"}));
    EXPECT_TRUE(app.IsOnDuty());
    EXPECT_FALSE(left.IsOnDuty());
    log.clear();
    Commander::SetTarget(&right);
    EXPECT_TRUE(log.empty());
    Commander::ForceTargetSwitch(&right);
    EXPECT_EQ(log, (std::vector<std::string>{"right off", "app off", "app on", "right on"}));
    {
        Commander child(&app);
        Commander::SetTarget(&child);
    }
    EXPECT_EQ(Commander::GetTarget(), &app) << "the target falls back to the parent of one that goes";
}

TEST_F(CommandTest, RegisteredContextsAreBuiltOnceAndLateRegistrationsRunAtOnce) {
    ShortcutManager& manager = ShortcutManager::Instance();
    int runs = 0;
    manager.RegisterCommandContext([&](ShortcutManager& m) {
        ++runs;
        ASSERT_NE(m.GetContext("global"), nullptr);
        m.AddContext("ingestdialog", u"Ingest Dialog")
            .DeclareCommand("cmd.common.setin", 12065, 2, u"Set In Point", "I", false);
    });
    EXPECT_EQ(manager.GetContext("ingestdialog"), nullptr);
    manager.BuildContexts();
    manager.BuildContexts();
    EXPECT_EQ(runs, 1);
    ASSERT_NE(manager.GetContext("ingestdialog"), nullptr);

    manager.RegisterCommandContext([&](ShortcutManager&) { ++runs; });
    EXPECT_EQ(runs, 2);
}

TEST_F(CommandTest, AShortcutRunsItsCommandInTheTopmostContext) {
    ShortcutManager& manager = ShortcutManager::Instance();
    manager.GetContext("global")->DeclareCommand("cmd.global.i", 1, 2, u"Global I", "I", false);
    auto& dialog = manager.AddContext("ingestdialog", u"Ingest Dialog");
    dialog.DeclareCommand("cmd.common.setin", 12065, 2, u"Set In Point", "I", false);
    dialog.DeclareCommand("cmd.none", 30205, 2, u"No shortcut", {}, false);
    TestCommander app("app", log, nullptr, {1, 12065});
    Commander::SetTarget(&app);
    log.clear();

    const KeyboardEvent i{Key::Character, u'i'};
    EXPECT_TRUE(manager.DispatchKeyboardEvent(i, false));
    manager.ApplyContext("ingestdialog", false);
    EXPECT_TRUE(manager.DispatchKeyboardEvent(i, true)); // a query runs nothing
    EXPECT_TRUE(manager.DispatchKeyboardEvent(i, false));
    EXPECT_EQ(log, (std::vector<std::string>{"app ran 1", "app ran 12065"}));

    const KeyboardEvent ctrlI{Key::Character, u'i', fluxui::ui::kModifierControl};
    EXPECT_FALSE(manager.DispatchKeyboardEvent(ctrlI, false));
    manager.UnapplyContext("ingestdialog");
    EXPECT_EQ(manager.GetAppliedContexts().size(), 1u);
}

TEST_F(CommandTest, AShortcutOfADisabledOrUnansweredCommandIsNotConsumed) {
    ShortcutManager& manager = ShortcutManager::Instance();
    manager.GetContext("global")->DeclareCommand("cmd.a", 1, 2, u"A", "Ctrl+A", false);
    manager.GetContext("global")->DeclareCommand("cmd.b", 2, 2, u"B", "Ctrl+Shift+B", false);
    TestCommander app("app", log, nullptr, {1}, /*enabled=*/false);
    Commander::SetTarget(&app);
    EXPECT_FALSE(manager.DispatchKeyboardEvent({Key::Character, u'a', fluxui::ui::kModifierControl}, false));
    EXPECT_FALSE(manager.DispatchKeyboardEvent(
        {Key::Character, u'B', fluxui::ui::kModifierControl | fluxui::ui::kModifierShift}, false));
}

TEST_F(CommandTest, DeclaringACommandTwiceOrABadShortcutIsAFault) {
    auto& context = ShortcutManager::Instance().AddContext("ctx", u"Ctx");
    context.DeclareCommand("cmd.a", 1, 2, u"A", {}, false);
    EXPECT_THROW(context.DeclareCommand("cmd.a", 2, 2, u"A", {}, false), std::logic_error);
    EXPECT_THROW(context.DeclareCommand("cmd.b", 1, 2, u"B", {}, false), std::logic_error);
    EXPECT_THROW(context.DeclareCommand("cmd.c", 3, 2, u"C", "Ctrl+", false), std::invalid_argument);
    EXPECT_THROW(ShortcutManager::Instance().ApplyContext("unknown", false), std::logic_error);
}

} // namespace
} // namespace igd::test
