// A panel's form worked on the terminal: given values first, the rest asked, required ones until
// answered, and OK pressed only when the form is complete.
#include <gtest/gtest.h>

#include <sstream>

#include "TerminalPanelForm.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"

namespace igd::test {
namespace {

using namespace fluxui::controls;

// The form as the panel host builds it: labels, edits (a star marks a required one), the
// apply-to-all box, OK and Cancel.
struct Form {
    Form() : window(new fluxui::ui::OS_Dialog(nullptr, u"Shoot")) {
        AddEdit("production", u"Production *");
        AddEdit("scene", u"Scene");
        applyAll = Add<UI_Checkbox>("applyToAllDestinations");
        applyAll->SetText(u"Apply to all destinations");
        applyAll->SetChecked(true);
        Add<UI_TextButton>("ok")->NotifyWhenChanged([this](const UI_ControlMessage&) { pressed = "ok"; });
        Add<UI_TextButton>("cancel")->NotifyWhenChanged([this](const UI_ControlMessage&) { pressed = "cancel"; });
    }
    template <class T> boost::intrusive_ptr<T> Add(const std::string& id) {
        boost::intrusive_ptr<T> node(new T());
        node->UI_SetNodeID(id);
        window->ChildPushBack(node);
        return node;
    }
    void AddEdit(const std::string& key, const Fnd::WString& label) {
        Add<UI_StaticText>("label." + key)->SetValue(label);
        Add<UI_TextEdit>("field." + key);
    }
    Fnd::WString Value(const std::string& key) {
        return dynamic_cast<UI_TextEdit*>(window->UI_FindNodeByID("field." + key))->GetValue();
    }

    boost::intrusive_ptr<fluxui::ui::OS_Dialog> window;
    boost::intrusive_ptr<UI_Checkbox> applyAll;
    std::string pressed;
};

TEST(TerminalPanelForm, OnATerminalWhatIsNotGivenIsAskedAndARequiredFieldUntilAnswered) {
    Form form;
    std::istringstream in("\nNight Shoot\nmaybe\nn\n");
    std::ostringstream out;
    EXPECT_TRUE(WorkPanelOnTerminal(*form.window, {{"scene", "4B"}}, in, out, true));
    EXPECT_EQ(form.pressed, "ok");
    EXPECT_EQ(form.Value("production"), u"Night Shoot");
    EXPECT_EQ(form.Value("scene"), u"4B");
    EXPECT_FALSE(form.applyAll->IsChecked());
    EXPECT_NE(out.str().find("Production is required."), std::string::npos) << out.str();
    EXPECT_NE(out.str().find("Please answer y or n."), std::string::npos);
    EXPECT_EQ(out.str().find("Scene"), std::string::npos) << "a given value is not asked again";
}

TEST(TerminalPanelForm, WithoutATerminalGivenValuesSufficeOrTheMissingOnesAreNamedAndThePanelCancelled) {
    {
        Form form;
        std::istringstream in;
        std::ostringstream out;
        EXPECT_TRUE(WorkPanelOnTerminal(*form.window, {{"production", "P"}, {"applyToAllDestinations", "false"}}, in,
                                        out, false));
        EXPECT_EQ(form.pressed, "ok");
        EXPECT_FALSE(form.applyAll->IsChecked());
        EXPECT_EQ(out.str(), "");
    }
    for (const PanelValues& values : {PanelValues{}, PanelValues{{"production", ""}}}) {
        Form form;
        std::istringstream in("typed but never read\n");
        std::ostringstream out;
        EXPECT_FALSE(WorkPanelOnTerminal(*form.window, values, in, out, false));
        EXPECT_EQ(form.pressed, "cancel");
        EXPECT_NE(out.str().find("the panel \"Shoot\" needs Production (production)"), std::string::npos)
            << out.str();
        EXPECT_EQ(form.Value("production"), u"");
    }
}

} // namespace
} // namespace igd::test
