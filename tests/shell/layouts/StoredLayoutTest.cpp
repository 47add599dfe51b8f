// Every layout of the library's store, built the way the sections build it: it resolves every
// text, marks only hint edits for the sections' factory, and "looks right" at its own width and
// stretched to the widths a dialog gives it (no control leaves its parent, no two shown siblings
// overlap, the right margin holds).
#include <functional>
#include <set>

#include <gtest/gtest.h>

#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_Popup.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "fluxui/ui/UI_NodeBuilder.h"
#include "fluxui/utility/OS_ResourceManager.h"
#include "shell/AutoHintTextEdit.h"
#include "shell/resources/ResourceStore.h"

namespace igd::test {
namespace {

using fluxcore::geom::RectF;
using fluxui::ui::UI_Node;

struct BuiltLayout {
    fluxui::ui::UI_NodeRef root;
    fluxui::ui::ControlsById controls;
    std::vector<Fnd::WString> classesAsked; // of the custom factory
};

BuiltLayout BuildStoredLayout(const std::string& name) {
    fluxui::utility::OS_ResourceManager resources(&IGD::FindStoredResource);
    BuiltLayout built;
    built.root = fluxui::ui::UI_NodeBuilder::LoadViewFromXML(
        resources, nullptr, name, built.controls, [&built](const Fnd::WString& className) -> fluxui::ui::UI_NodeRef {
            built.classesAsked.push_back(className);
            if (className == u"AutoHintTextEdit")
                return fluxui::ui::UI_NodeRef(new IGD::AutoHintTextEdit());
            return {};
        });
    return built;
}

std::vector<std::string> StoredLayoutNames() {
    std::vector<std::string> names;
    for (std::string_view name : IGD::StoredResourceNames("XML"))
        names.emplace_back(name);
    return names;
}

Fnd::WString DisplayText(const UI_Node& node) {
    using namespace fluxui::controls;
    if (auto* checkbox = dynamic_cast<const UI_Checkbox*>(&node))
        return checkbox->GetText();
    if (auto* button = dynamic_cast<const UI_TextButton*>(&node))
        return button->GetText();
    if (auto* text = dynamic_cast<const UI_StaticText*>(&node))
        return text->GetValue();
    if (auto* edit = dynamic_cast<const UI_TextEdit*>(&node))
        return edit->GetValue();
    return {};
}

void ForEachNode(const UI_Node& node, const std::function<void(const UI_Node&)>& visit) {
    visit(node);
    for (auto child = node.ChildBegin(); child != node.ChildEnd(); ++child)
        ForEachNode(**child, visit);
}

// Siblings that share one place on purpose: the row's field type shows one of them at a time.
const std::set<std::pair<std::string, std::set<std::string>>> kAlternates{
    {"IGDRENAMETEMPLATEEDITMODEFIELD", {"AutoHintTextEdit", "UI_OutlineBox", "UI_Popup"}},
    {"IGDRENAMETEMPLATENORMALMODEFIELD", {"AutoHintTextEdit", "UI_OutlineBox", "UI_UserDefStartNumber"}},
};

bool AreAlternates(const std::string& layout, const UI_Node& a, const UI_Node& b) {
    for (const auto& [name, ids] : kAlternates)
        if (name == layout && ids.count(a.UI_GetNodeID()) && ids.count(b.UI_GetNodeID()))
            return true;
    return false;
}

bool Overlap(const RectF& a, const RectF& b) {
    return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

void CheckChildren(const std::string& layout, const UI_Node& parent) {
    const RectF bounds = parent.UI_GetLocalRectF();
    std::vector<const UI_Node*> shown;
    for (auto child = parent.ChildBegin(); child != parent.ChildEnd(); ++child) {
        const UI_Node& node = **child;
        const RectF rect = node.UI_GetLocalRectF(true);
        const std::string where = layout + "/" + node.UI_GetNodeID();
        EXPECT_FALSE(rect.IsEmpty()) << where;
        EXPECT_GE(rect.left, 0.0f) << where;
        EXPECT_GE(rect.top, 0.0f) << where;
        EXPECT_LE(rect.Right(), bounds.width) << where;
        EXPECT_LE(rect.Bottom(), bounds.height) << where;
        if (node.UI_IsShown())
            shown.push_back(&node);
        CheckChildren(layout, node);
    }
    for (std::size_t i = 0; i < shown.size(); ++i)
        for (std::size_t j = i + 1; j < shown.size(); ++j)
            if (!AreAlternates(layout, *shown[i], *shown[j])) {
                EXPECT_FALSE(Overlap(shown[i]->UI_GetLocalRectF(true), shown[j]->UI_GetLocalRectF(true)))
                    << layout << ": " << shown[i]->UI_GetNodeID() << " overlaps " << shown[j]->UI_GetNodeID();
            }
}

class StoredLayout : public ::testing::TestWithParam<std::string> {};

TEST_P(StoredLayout, ResolvesEveryTextAndMarksOnlyHintEditsForTheFactory) {
    const BuiltLayout built = BuildStoredLayout(GetParam());
    ASSERT_TRUE(built.root);
    ForEachNode(*built.root, [](const UI_Node& node) {
        EXPECT_EQ(DisplayText(node).find(u"$$$"), Fnd::WString::npos) << node.UI_GetNodeID();
        EXPECT_EQ(node.UI_GetToolTip().find(u"$$$"), Fnd::WString::npos) << node.UI_GetNodeID();
        if (auto* popup = dynamic_cast<const fluxui::controls::UI_Popup*>(&node)) {
            for (const auto& item : popup->GetItems()) {
                EXPECT_EQ(item.text.find(u"$$$"), Fnd::WString::npos) << node.UI_GetNodeID();
            }
        }
    });
    for (const Fnd::WString& className : built.classesAsked)
        EXPECT_EQ(className, u"AutoHintTextEdit");
}

TEST_P(StoredLayout, FitsAtItsOwnSizeAndKeepsTheRightMarginWhenStretched) {
    const BuiltLayout authored = BuildStoredLayout(GetParam());
    const RectF own = authored.root->UI_GetLocalRectF(true);
    CheckChildren(GetParam(), *authored.root);
    for (float grow : {60.0f, 160.0f}) {
        SCOPED_TRACE(grow);
        const BuiltLayout stretched = BuildStoredLayout(GetParam());
        stretched.root->UI_SetLocalRectF({0, 0, own.width + grow, own.height});
        CheckChildren(GetParam(), *stretched.root);
        // A control that ends at the right margin keeps to it, so that rows stay aligned.
        auto a = authored.root->ChildBegin();
        auto s = stretched.root->ChildBegin();
        for (; a != authored.root->ChildEnd(); ++a, ++s) {
            const RectF before = (*a)->UI_GetLocalRectF(true);
            const RectF after = (*s)->UI_GetLocalRectF(true);
            SCOPED_TRACE((*a)->UI_GetNodeID());
            const bool followsRight = after.Right() == before.Right() + grow;
            EXPECT_TRUE(after == before || followsRight);
            if (before.Right() >= own.width - 10.0f) {
                EXPECT_TRUE(followsRight);
            }
            EXPECT_EQ(after.top, before.top);
            EXPECT_EQ(after.height, before.height);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Store, StoredLayout, ::testing::ValuesIn(StoredLayoutNames()),
                         [](const auto& info) { return info.param; });

} // namespace
} // namespace igd::test
