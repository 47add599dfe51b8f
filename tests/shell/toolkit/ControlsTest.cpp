#include <gtest/gtest.h>

#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_NumberEdit.h"
#include "fluxui/controls/UI_PictureButton.h"
#include "fluxui/controls/UI_Popup.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "fluxui/ui/UI_SubView.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace igd::test {
namespace {

using namespace fluxui::controls;

TEST(ControlNotifications, ProgramChangesReachOnlyTheChangeNotification) {
    auto box = Make<UI_Checkbox>();
    Notifications n(*box);
    box->SetChecked(true);
    box->SetChecked(true); // no change
    EXPECT_EQ(n.changed, 1);
    EXPECT_EQ(n.interactive, 0);
    EXPECT_FALSE(n.lastInteractive);

    box->Press();
    EXPECT_FALSE(box->IsChecked());
    EXPECT_EQ(n.changed, 2);
    EXPECT_EQ(n.interactive, 1);
    EXPECT_TRUE(n.lastInteractive);
}

TEST(ControlNotifications, DisabledControlsIgnoreThePerson) {
    auto root = Make<fluxui::ui::UI_SubView>();
    auto button = Make<UI_TextButton>(u"Ingest");
    root->ChildPushBack(button);
    Notifications n(*button);
    root->UI_SetDisabled(true);
    button->Press();
    EXPECT_EQ(n.changed, 0);
    root->UI_SetDisabled(false);
    button->Press();
    button->Press();
    EXPECT_EQ(n.changed, 2);
    EXPECT_EQ(n.interactive, 2);
}

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

TEST(Checkbox, SettingTheSameStateOnAMixedBoxIsAChange) {
    auto box = Make<UI_Checkbox>();
    box->SetChecked(true);
    box->SetValueUnknown();
    Notifications n(*box);
    box->SetChecked(true);
    EXPECT_FALSE(box->IsValueUnknown());
    EXPECT_EQ(n.changed, 1);
}

TEST(Popup, ItemsAreNumberedInOrderAndChosenByNumberOrText) {
    auto popup = Make<UI_Popup>();
    EXPECT_EQ(popup->GetValue(), -1);
    EXPECT_EQ(popup->AddItem(u"MD5"), 0);
    EXPECT_EQ(popup->AddItem(u"xxHash64"), 1);
    EXPECT_EQ(popup->GetValueString(), u"");
    Notifications n(*popup);

    popup->SetValue(1);
    EXPECT_EQ(popup->GetValueString(), u"xxHash64");
    popup->SetValue(7);
    EXPECT_EQ(popup->GetValue(), -1);

    popup->SetValueString(u"MD5", true, true);
    EXPECT_EQ(popup->GetValue(), 0);
    popup->SetValueString(u"not there", false, true);
    EXPECT_EQ(popup->GetValue(), -1);
    EXPECT_EQ(n.changed, 3); // the silent one did not notify
    EXPECT_EQ(n.interactive, 0);

    popup->DeleteAllItems();
    EXPECT_TRUE(popup->GetItems().empty());
    EXPECT_EQ(popup->GetValue(), -1);
}

TEST(TextEdit, TypingIsInteractiveAndLeavesTheUnknownState) {
    auto edit = Make<UI_TextEdit>();
    edit->SetUnknownStateText(u"<mixed>");
    edit->SetValue(u"a", false);
    edit->SetValueUnknown();
    EXPECT_EQ(edit->GetDisplayedText(), u"<mixed>");
    Notifications n(*edit);
    edit->TypeText(u"b");
    EXPECT_EQ(edit->GetValue(), u"b");
    EXPECT_FALSE(edit->IsValueUnknown());
    EXPECT_EQ(n.interactive, 1);

    edit->SetValue(u"c", true);
    EXPECT_EQ(n.changed, 2);
    EXPECT_EQ(n.interactive, 1);
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
    edit->TypeText(u"42");
    EXPECT_DOUBLE_EQ(edit->GetNumber(), 42);
    edit->TypeText(u"abc");
    EXPECT_DOUBLE_EQ(edit->GetNumber(), 1);
    edit->SetDecimalPlaces(2);
    edit->SetNumber(3.14159, false);
    EXPECT_EQ(edit->GetValue(), u"3.14");
    EXPECT_THROW(edit->SetRange(5, 4), std::invalid_argument);
}

} // namespace
} // namespace igd::test
