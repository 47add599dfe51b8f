#include <gtest/gtest.h>

#include "fluxui/controls/UI_NumberEdit.h"
#include "fluxui/controls/UI_Popup.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "fluxui/ui/UI_SubView.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace igd::test {
namespace {

using namespace fluxui::controls;

TEST(ControlNotifications, ANotificationMayReplaceItself) {
    auto button = Make<UI_TextButton>();
    int first = 0;
    int second = 0;
    button->NotifyWhenChanged([&](const UI_ControlMessage&) {
        ++first;
        button->NotifyWhenChanged([&](const UI_ControlMessage&) { ++second; });
    });
    button->Press();
    button->Press();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}

TEST(Popup, ChoosesByTextAndAnUnknownChoiceLeavesNothingChosen) {
    auto popup = Make<UI_Popup>();
    popup->AddItem(u"MD5");
    popup->AddItem(u"xxHash64");
    Notifications n(*popup);
    popup->SetValueString(u"xxHash64", true, true);
    EXPECT_EQ(popup->GetValue(), 1);
    popup->SetValue(7);
    EXPECT_EQ(popup->GetValue(), -1);
    popup->SetValueString(u"MD5", false, true);
    EXPECT_EQ(popup->GetValueString(), u"MD5");
    EXPECT_EQ(n.changed, 2) << "the silent choice did not notify";
}

TEST(TextEdit, LeavingTheFieldCommitsTheEdit) {
    auto root = Make<fluxui::ui::UI_SubView>();
    auto edit = Make<UI_TextEdit>();
    auto other = Make<UI_TextEdit>();
    root->ChildPushBack(edit);
    root->ChildPushBack(other);
    std::vector<EditEnd> ends;
    edit->NotifyWhenEditEnds([&](EditEnd how) { ends.push_back(how); });
    ASSERT_TRUE(edit->UI_GainKeyboardFocus());
    edit->TypeText(u"x");
    other->UI_GainKeyboardFocus();
    EXPECT_EQ(ends, std::vector<EditEnd>{EditEnd::Commit});
    EXPECT_EQ(edit->GetValue(), u"x");
}

TEST(NumberEdit, ReadsAndWritesNumbersWithinItsRange) {
    auto edit = Make<UI_NumberEdit>();
    edit->SetRange(1, 100);
    edit->SetNumber(250, false);
    EXPECT_EQ(edit->GetValue(), u"100");
    edit->TypeText(u"abc");
    EXPECT_DOUBLE_EQ(edit->GetNumber(), 1);
    edit->SetDecimalPlaces(2);
    edit->SetNumber(3.14159, false);
    EXPECT_EQ(edit->GetValue(), u"3.14");
    EXPECT_THROW(edit->SetRange(5, 4), std::invalid_argument);
}

} // namespace
} // namespace igd::test
