// The command line answers existing-target questions from its policy, from the terminal, or by
// cancelling: never by overwriting unasked.
#include <gtest/gtest.h>

#include <sstream>

#include "TerminalInteractionDriver.h"

namespace igd::test {
namespace {

Fnd::ExistingPathQuestion Question() {
    Fnd::ExistingPathQuestion question;
    question.source = u"/card/A001.MOV";
    question.target = u"/dest/A001.MOV";
    return question;
}

// A policy answers every question for the whole request; without one, the user's key chooses
// and a capital applies to all; without a terminal either, the request is cancelled.
TEST(TerminalInteractionDriver, APolicyOrTheUsersKeyChoosesTheActionAndNothingElseProceeds) {
    struct Case {
        const char* typed;
        bool terminal;
        std::optional<int> policy;
        bool proceed;
        int action;
        bool applyToAll;
    };
    for (const Case& c : {Case{"", false, 3, true, 3, true}, Case{"", false, 0, false, 0, false},
                          Case{"r\n", false, std::nullopt, false, 0, false},
                          Case{"s\n", true, std::nullopt, true, 1, false},
                          Case{"K\n", true, std::nullopt, true, 2, true},
                          Case{"r\n", true, std::nullopt, true, 3, false},
                          Case{"c\n", true, std::nullopt, false, 0, false},
                          Case{"x\n", true, std::nullopt, false, 0, false},
                          Case{"", true, std::nullopt, false, 0, false}}) {
        SCOPED_TRACE(std::string(c.typed) + (c.terminal ? " at a terminal" : " without a terminal"));
        std::istringstream in(c.typed);
        std::ostringstream out;
        TerminalInteractionDriver driver(in, out, c.terminal, c.policy);
        const Fnd::ExistingPathAnswer answer = driver.AskExistingPath(Question());
        EXPECT_EQ(answer.proceed, c.proceed);
        if (c.proceed) {
            EXPECT_EQ(answer.action, c.action);
            EXPECT_EQ(answer.applyToAll, c.applyToAll);
        }
        if (!c.terminal && !c.policy) {
            EXPECT_NE(out.str().find("--on-conflict"), std::string::npos) << "the way out is named";
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
} // namespace igd::test
