// The builder against small archives of our own: finding layouts, the custom factory, ids, and
// the errors a broken layout gives.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "LayoutArchive.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "fluxui/ui/UI_NodeBuilder.h"
#include "fluxui/utility/OS_ResourceManager.h"
#include "shell/AutoHintTextEdit.h"
#include "shell/resources/ResourceStore.h"
#include "support/HostileXml.h"

namespace igd::test {
namespace {

using fluxui::ui::ControlsById;
using fluxui::ui::LayoutError;
using fluxui::ui::UI_NodeBuilder;
using fluxui::ui::UI_NodeRef;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using namespace archive;

std::string HintEdit(const std::string& id, const std::string& className = "AutoHintTextEdit") {
    return Node("fluxui::controls::UI_TextEdit_S",
                {Section("UI_TextEdit_S"), Section("UI_TextEdit", Pair("text", UString("abc"))),
                 Section("UI_InteractiveControlView"), Section("UI_ControlView"), Section("UI_SubView"),
                 NodeSection(id, Rect(10, 10, 80, 22))},
                className);
}

class NodeBuilder : public ::testing::Test {
protected:
    UI_NodeRef Load(const std::string& name, const fluxui::ui::CustomControlFactory& factory = {}) {
        return UI_NodeBuilder::LoadViewFromXML(resources, nullptr, name, controls, factory);
    }
    // The message of the LayoutError the layout gives, or "" when it builds.
    std::string ErrorOf(const std::string& text) {
        resources.AddResource("XML", "igdBroken", text);
        try {
            Load("igdBroken");
        } catch (const LayoutError& e) {
            return e.what();
        }
        return "";
    }

    fluxui::utility::OS_ResourceManager resources{&IGD::FindStoredResource};
    ControlsById controls;
};

TEST_F(NodeBuilder, AnAddedResourceTakesThePlaceOfTheStoredOne) {
    resources.AddResource("XML", "IGDVERIFYSETTING", Archive(SubView("Replaced", {})));
    ASSERT_TRUE(Load("igdVerifySetting"));
    EXPECT_TRUE(controls.count("Replaced"));
    EXPECT_FALSE(controls.count("VerifyPopup"));
    // An empty name builds nothing.
    EXPECT_FALSE(Load(""));
}

TEST_F(NodeBuilder, BuildsChildrenInOrderWithTheirPropertiesAndTheFirstOfARepeatedId) {
    resources.AddResource("XML", "igdTwo",
                          Archive(SubView("", {Checkbox("First", "($$$/Test/First=One)"),
                                               Checkbox("Second", "plain", Pair("visible", "<false/>")),
                                               Checkbox("First", "a repeated id: the first wins")})));
    const UI_NodeRef root = Load("igdTwo");
    ASSERT_EQ(root->ChildCount(), 3u);
    EXPECT_EQ((*root->ChildBegin())->UI_GetNodeID(), "First");
    auto* first = dynamic_cast<fluxui::controls::UI_Checkbox*>(controls.at("First").get());
    auto* second = dynamic_cast<fluxui::controls::UI_Checkbox*>(controls.at("Second").get());
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->GetText(), u"One");
    EXPECT_EQ(second->GetText(), u"plain");
    EXPECT_TRUE(first->UI_IsShown());
    EXPECT_FALSE(second->UI_IsShown());
}

TEST_F(NodeBuilder, OffersAClassNameToTheFactoryAndFallsBackOnTheAdapterWhenItDeclines) {
    resources.AddResource(
        "XML", "igdHint",
        Archive(SubView("", {HintEdit("Hint"), HintEdit("Other", "SomethingElse"), Checkbox("Box", "x")})));
    std::vector<Fnd::WString> asked;
    Load("igdHint", [&](const Fnd::WString& className) -> UI_NodeRef {
        asked.push_back(className);
        return className == u"AutoHintTextEdit" ? UI_NodeRef(new IGD::AutoHintTextEdit()) : UI_NodeRef();
    });
    EXPECT_EQ(asked, (std::vector<Fnd::WString>{u"AutoHintTextEdit", u"SomethingElse"})); // not the checkbox
    auto* hint = dynamic_cast<IGD::AutoHintTextEdit*>(controls.at("Hint").get());
    ASSERT_TRUE(hint);
    EXPECT_EQ(hint->GetValue(), u"abc");
    auto* edit = dynamic_cast<fluxui::controls::UI_TextEdit*>(controls.at("Other").get());
    ASSERT_TRUE(edit);
    EXPECT_STREQ(edit->UI_GetClassName(), "UI_TextEdit");
    EXPECT_EQ(edit->GetValue(), u"abc");
}

TEST_F(NodeBuilder, HostileXmlIsRefusedAndNothingOutsideIsRead) {
    const HostileXmlWorld world;
    const auto layoutWith = [](const std::string& doctype, const std::string& text) {
        std::string layout = Archive(SubView("", {Checkbox("A", text)}));
        return layout.insert(layout.find("?>") + 2, doctype);
    };
    for (const HostileXml& c : world.Documents(layoutWith)) {
        SCOPED_TRACE(c.what);
        const std::string error = ErrorOf(c.xml);
        EXPECT_THAT(error, StartsWith("igdBroken: malformed XML at line "));
        EXPECT_THAT(error, HasSubstr(c.reason));
        EXPECT_THAT(error, Not(HasSubstr(HostileXmlWorld::kSecret)));
    }
    EXPECT_EQ(ErrorOf(world.WithOutsideDtd(layoutWith, "Day")), "");
    EXPECT_FALSE(world.WasFetched());
}

// A broken layout names itself, the node and the property where it breaks.
TEST_F(NodeBuilder, ABrokenLayoutSaysWhereItBreaks) {
    const std::string foo = Node("fluxui::controls::UI_Foo", {});
    std::string deep = SubView("Leaf", {});
    for (int i = 0; i < 200; ++i)
        deep = SubView("", {deep});
    const struct {
        std::string text;
        std::string error; // the message; after "^" its start, after "..." a part of it
    } cases[] = {
        {"<?xml version='1.0'?>\r\n<prop.map version='4'>\r\n<prop.list>\r\n</prop.map>",
         "^igdBroken: malformed XML at line 4"},
        {"<?xml version='1.0'?><prop.map version='3'><prop.list/></prop.map>", "...version '3' is not 4"},
        {Archive(SubView("", {Checkbox("A", "a"), foo})),
         "igdBroken: root/child-1: unknown class fluxui::controls::UI_Foo"},
        {Archive(SubView("", {Checkbox("A", "a", "")}, "<ustring>wide</ustring>")),
         "igdBroken: root: UI_Node.bounds: expected prop.list, found ustring"},
        {Archive(SubView("", {Checkbox("A", "a", Pair("colour", "<true/>"))})),
         "igdBroken: root/child-0: section UI_Node has no property colour"},
        {Archive(deep), "...deeper than"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.error);
        if (c.error.rfind("^", 0) == 0) {
            EXPECT_THAT(ErrorOf(c.text), StartsWith(c.error.substr(1)));
        } else if (c.error.rfind("...", 0) == 0) {
            EXPECT_THAT(ErrorOf(c.text), HasSubstr(c.error.substr(3)));
        } else {
            EXPECT_EQ(ErrorOf(c.text), c.error);
        }
    }
    EXPECT_TRUE(controls.empty()) << "a failed build leaves the caller's map as it was";
    try {
        Load("igdNoSuchLayout");
        ADD_FAILURE() << "a missing layout was built";
    } catch (const LayoutError& e) {
        EXPECT_STREQ(e.what(), "igdNoSuchLayout: no layout of that name");
    }
}

} // namespace
} // namespace igd::test
