// The command line answers existing-target questions from its policy, from the terminal, or by
// cancelling: never by overwriting unasked.
#include <gtest/gtest.h>

#include <sstream>

#include "TerminalInteractionDriver.h"

namespace igd {
namespace {

Fnd::ExistingPathQuestion Question() {
    Fnd::ExistingPathQuestion question;
    question.source = u"/card/A001.MOV";
    question.target = u"/dest/A001.MOV";
    return question;
}

TEST(TerminalInteractionDriver, APolicyAnswersEveryQuestionForTheWholeRequest) {
    std::istringstream in;
    std::ostringstream out;
    TerminalInteractionDriver replace(in, out, false, 3);
    const Fnd::ExistingPathAnswer answer = replace.AskExistingPath(Question());
    EXPECT_TRUE(answer.proceed);
    EXPECT_EQ(answer.action, 3);
    EXPECT_TRUE(answer.applyToAll);

    TerminalInteractionDriver cancel(in, out, false, 0);
    EXPECT_FALSE(cancel.AskExistingPath(Question()).proceed);
}

TEST(TerminalInteractionDriver, WithoutAPolicyOrATerminalTheRequestIsCancelled) {
    std::istringstream in("r\n");
    std::ostringstream out;
    TerminalInteractionDriver driver(in, out, false, std::nullopt);
    EXPECT_FALSE(driver.AskExistingPath(Question()).proceed);
    EXPECT_NE(out.str().find("--on-conflict"), std::string::npos);
}

TEST(TerminalInteractionDriver, TheUsersKeyChoosesTheActionAndCapitalsApplyToAll) {
    struct Case {
        const char* typed;
        bool proceed;
        int action;
        bool applyToAll;
    };
    for (const Case& c :
         {Case{"s\n", true, 1, false}, Case{"K\n", true, 2, true}, Case{"r\n", true, 3, false},
          Case{"c\n", false, 0, false}, Case{"x\n", false, 0, false}, Case{"", false, 0, false}}) {
        std::istringstream in(c.typed);
        std::ostringstream out;
        TerminalInteractionDriver driver(in, out, true, std::nullopt);
        const Fnd::ExistingPathAnswer answer = driver.AskExistingPath(Question());
        EXPECT_EQ(answer.proceed, c.proceed) << c.typed;
        if (c.proceed) {
            EXPECT_EQ(answer.action, c.action) << c.typed;
            EXPECT_EQ(answer.applyToAll, c.applyToAll) << c.typed;
        }
    }
}

TEST(TerminalInteractionDriver, BoxesTakeTheDefaultUnlessTheUserPicksAnotherButton) {
    Fnd::MessageBoxRequest box;
    box.title = u"Clip Copy";
    box.text = u"Not enough space";
    box.buttons = {u"Retry", u"Cancel", u"Continue"};
    box.defaultButton = 1;

    std::istringstream none;
    std::ostringstream out;
    EXPECT_EQ(TerminalInteractionDriver(none, out, false, std::nullopt).AskMessageBox(box), 1);
    EXPECT_NE(out.str().find("Clip Copy: Not enough space"), std::string::npos);

    std::istringstream third("3\n");
    EXPECT_EQ(TerminalInteractionDriver(third, out, true, std::nullopt).AskMessageBox(box), 2);
    std::istringstream nonsense("9\n");
    EXPECT_EQ(TerminalInteractionDriver(nonsense, out, true, std::nullopt).AskMessageBox(box), 1);
}

} // namespace
} // namespace igd
