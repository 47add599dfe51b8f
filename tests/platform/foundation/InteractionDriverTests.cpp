#include <gtest/gtest.h>

#include <memory>

#include "Fnd/InteractionDriver.h"

namespace {

class ScriptedDriver : public Fnd::IInteractionDriver {
public:
    int AskMessageBox(const Fnd::MessageBoxRequest&) override { return 0; }
    Fnd::ExistingPathAnswer AskExistingPath(const Fnd::ExistingPathQuestion&) override {
        return {.proceed = true, .action = 3, .applyToAll = true};
    }
};

Fnd::MessageBoxRequest YesNoBox(int defaultButton) {
    Fnd::MessageBoxRequest request;
    request.title = u"Ingest";
    request.text = u"Replace the existing file?";
    request.buttons = {u"Yes", u"No"};
    request.defaultButton = defaultButton;
    return request;
}

} // namespace

TEST(InteractionDriver, WithoutADriverBoxesAnswerTheirDefaultAndCopiesAreCancelled) {
    auto& driver = Fnd::GetInteractionDriver();
    EXPECT_EQ(driver.AskMessageBox(YesNoBox(1)), 1);
    EXPECT_EQ(driver.AskMessageBox(YesNoBox(0)), 0);

    const auto answer = driver.AskExistingPath({.source = u"/card/a.MOV", .target = u"/media/a.MOV"});
    EXPECT_FALSE(answer.proceed);
    EXPECT_FALSE(answer.applyToAll);
}

TEST(InteractionDriver, MalformedBoxesAreFaults) {
    auto& driver = Fnd::GetInteractionDriver();
    EXPECT_THROW(driver.AskMessageBox(YesNoBox(2)), std::invalid_argument);
    EXPECT_THROW(driver.AskMessageBox(Fnd::MessageBoxRequest{}), std::invalid_argument);
}

TEST(InteractionDriver, InstalledDriverAnswersUntilRemoved) {
    auto scripted = std::make_shared<ScriptedDriver>();
    Fnd::SetInteractionDriver(scripted);
    EXPECT_EQ(&Fnd::GetInteractionDriver(), scripted.get());
    EXPECT_TRUE(Fnd::GetInteractionDriver().AskExistingPath({}).proceed);
    Fnd::SetInteractionDriver(nullptr);
    EXPECT_FALSE(Fnd::GetInteractionDriver().AskExistingPath({}).proceed);
    EXPECT_EQ(Fnd::GetInteractionDriver().AskMessageBox(YesNoBox(1)), 1);
}
