#include <gtest/gtest.h>

#include "Fnd/InteractionDriver.h"
#include "support/ScriptedInteractionDriver.h"

namespace igd::test {

namespace {

Fnd::MessageBoxRequest YesNoBox(int defaultButton) {
    return {u"Ingest", u"Replace the existing file?", {u"Yes", u"No"}, defaultButton};
}

} // namespace

// A host that never installs a driver must not have files overwritten behind the user's back.
TEST(InteractionDriver, WithoutADriverBoxesAnswerTheirDefaultAndCopiesAreCancelled) {
    auto& driver = Fnd::GetInteractionDriver();
    EXPECT_EQ(driver.AskMessageBox(YesNoBox(1)), 1);
    EXPECT_EQ(driver.AskMessageBox(YesNoBox(0)), 0);
    const auto answer = driver.AskExistingPath({.source = u"/card/a.MOV", .target = u"/media/a.MOV"});
    EXPECT_FALSE(answer.proceed);
    EXPECT_FALSE(answer.applyToAll);

    EXPECT_THROW(driver.AskMessageBox(YesNoBox(2)), std::invalid_argument);
    EXPECT_THROW(driver.AskMessageBox(Fnd::MessageBoxRequest{}), std::invalid_argument);
}

TEST(InteractionDriver, InstalledDriverAnswersUntilRemoved) {
    {
        ScopedInteractionDriver ui;
        ui->QueueExistingPathAnswer(3, true);
        EXPECT_TRUE(Fnd::GetInteractionDriver().AskExistingPath({}).proceed);
    }
    EXPECT_FALSE(Fnd::GetInteractionDriver().AskExistingPath({}).proceed);
    EXPECT_EQ(Fnd::GetInteractionDriver().AskMessageBox(YesNoBox(1)), 1);
}

} // namespace igd::test
