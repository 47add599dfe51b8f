#include <gtest/gtest.h>

#include "shell/AutoHintTextEdit.h"
#include "fluxui/ui/UI_SubView.h"

namespace igd::test {
namespace {

using IGD::AutoHintTextEdit;

// A field in a small form, so focus can move to it and away from it.
struct Form {
    Form() : root(new fluxui::ui::UI_SubView), field(new AutoHintTextEdit), other(new AutoHintTextEdit) {
        root->ChildPushBack(field);
        root->ChildPushBack(other);
    }
    boost::intrusive_ptr<fluxui::ui::UI_SubView> root;
    boost::intrusive_ptr<AutoHintTextEdit> field;
    boost::intrusive_ptr<AutoHintTextEdit> other;
};

TEST(AutoHintTextEdit, AnEmptyFieldShowsItsHintButAnswersNothing) {
    Form form;
    form.field->SetHintText(u"Enter text");
    form.field->SetValue(u"");
    EXPECT_EQ(form.field->GetValue(), u"");
    EXPECT_EQ(form.field->GetLabelText(), u"");
    EXPECT_EQ(form.field->GetDisplayedText(), u"Enter text");
    EXPECT_EQ(form.field->GetCustomTextColor(), AutoHintTextEdit::kDefaultHintColor);

    form.field->SetValue(u"A001");
    EXPECT_EQ(form.field->GetValue(), u"A001");
    EXPECT_FALSE(form.field->GetCustomTextColor());
    form.field->SetLabelText(u"");
    EXPECT_EQ(form.field->GetValue(), u"");
    EXPECT_EQ(form.field->GetDisplayedText(), u"Enter text");

    // Focus in and out without typing brings the hint back.
    ASSERT_TRUE(form.field->UI_GainKeyboardFocus());
    EXPECT_FALSE(form.field->GetCustomTextColor());
    form.other->UI_GainKeyboardFocus();
    EXPECT_EQ(form.field->GetValue(), u"");
    EXPECT_EQ(form.field->GetDisplayedText(), u"Enter text");
    EXPECT_EQ(form.field->GetCustomTextColor(), AutoHintTextEdit::kDefaultHintColor);

    // An unknown value (several differing values under one field) is no value either.
    form.field->SetValue(u"A002");
    form.field->SetValueUnknown();
    EXPECT_EQ(form.field->GetValue(), u"");
}

TEST(AutoHintTextEdit, TypingTheHintTextKeepsItAsARealValue) {
    Form form;
    form.field->SetHintText(u"Enter text");
    form.field->SetValue(u"");
    ASSERT_TRUE(form.field->UI_GainKeyboardFocus());
    EXPECT_EQ(form.field->GetDisplayedText(), u""); // the person types into an empty field
    form.field->TypeText(u"Enter text");
    form.other->UI_GainKeyboardFocus();
    EXPECT_EQ(form.field->GetValue(), u"Enter text");
    EXPECT_FALSE(form.field->IsValueUnknown());
    EXPECT_FALSE(form.field->GetCustomTextColor());
}

TEST(AutoHintTextEdit, ClearingTheTextByTypingBringsTheHintBackOnLeaving) {
    Form form;
    form.field->SetHintText(u"Enter text");
    form.field->SetValue(u"Scene 4");
    form.field->UI_GainKeyboardFocus();
    form.field->TypeText(u"");
    form.other->UI_GainKeyboardFocus();
    EXPECT_TRUE(form.field->IsValueUnknown());
    EXPECT_EQ(form.field->GetValue(), u"");
    const fluxui::sketcher::ColorRGBA blue{0, 0, 1, 1};
    form.field->SetHintTextColor(blue);
    EXPECT_EQ(form.field->GetCustomTextColor(), blue);

    // Without a hint the field never takes the hint colour.
    form.field->SetHintText(u"");
    form.field->UI_GainKeyboardFocus();
    form.other->UI_GainKeyboardFocus();
    EXPECT_FALSE(form.field->GetCustomTextColor());
    EXPECT_EQ(form.field->GetValue(), u"");
}

} // namespace
} // namespace igd::test
