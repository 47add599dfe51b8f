// Every layout of the store against the catalogue the sections bind to: ids, classes, root size,
// texts, popup items and the states the layouts author.
#include <algorithm>
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "BuiltLayout.h"
#include "LayoutCatalogue.h"
#include "shell/resources/ResourceStore.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_Divider.h"
#include "fluxui/controls/UI_NumberEdit.h"
#include "fluxui/controls/UI_PicturePopup.h"
#include "fluxui/controls/UI_Popup.h"

namespace igd::test {
namespace {

using fluxui::archive::Property;
using fluxui::ui::UI_Node;

// What the archive says of one node.
struct ArchiveNode {
    std::string adapter;
    std::optional<Fnd::WString> className;
    std::optional<Fnd::WString> text;
};

const Property& Section(const Property& node, std::size_t index) {
    return *node.Find("sections")->Find("section-" + std::to_string(index));
}

// Every node of the archive by id, the first of a repeated id winning, as the builder enters them.
void CollectArchiveNodes(const Property& node, std::map<std::string, ArchiveNode>& nodes) {
    const Property& sections = *node.Find("sections");
    const auto count = static_cast<std::size_t>(sections.Find("count")->integer);
    ArchiveNode entry;
    entry.adapter = Fnd::ToUTF8(node.Find("adapter")->text);
    if (const Property* className = node.Find("className"))
        entry.className = className->text;
    std::string id;
    const Property* children = nullptr;
    for (std::size_t i = 0; i < count; ++i) {
        const Property& section = Section(node, i);
        if (const Property* value = section.Find("id"))
            id = value->narrow;
        if (const Property* text = section.Find("text"))
            entry.text = text->text;
        if (const Property* found = section.Find("children"))
            children = found;
    }
    nodes.emplace(id, entry);
    if (!children)
        return;
    for (std::int64_t i = 0; i < children->Find("count")->integer; ++i)
        CollectArchiveNodes(*children->Find("child-" + std::to_string(i)), nodes);
}

std::string ShortName(const std::string& adapter) {
    return adapter.substr(adapter.rfind(':') + 1);
}

void ForEachNode(const UI_Node& node, const std::function<void(const UI_Node&)>& visit) {
    visit(node);
    for (auto child = node.ChildBegin(); child != node.ChildEnd(); ++child)
        ForEachNode(**child, visit);
}

class EachLayout : public ::testing::TestWithParam<CatalogueLayout> {};

TEST_P(EachLayout, MatchesTheCatalogueAndResolvesEveryText) {
    const CatalogueLayout& layout = GetParam();
    const BuiltLayout built = BuildStoredLayout(layout.name);
    ASSERT_TRUE(built.root);
    EXPECT_EQ(built.root->UI_GetLocalRectF(true), (fluxcore::geom::RectF{0, 0, layout.width, layout.height}));

    std::map<std::string, ArchiveNode> archived;
    CollectArchiveNodes(*built.archive.Find("root"), archived);

    std::set<std::string> expectedNamed;
    for (const CatalogueControl& control : layout.controls) {
        SCOPED_TRACE(control.id);
        ASSERT_TRUE(archived.count(control.id));
        EXPECT_EQ(ShortName(archived[control.id].adapter), control.archiveClass);
        ASSERT_TRUE(built.controls.count(control.id));
        const UI_Node& node = *built.controls.at(control.id);
        // The class built: the toolkit's own, or the hint edit the sections' factory makes.
        const std::string builtClass = node.UI_GetClassName();
        if (control.archiveClass == "UI_TextEdit_S") {
            EXPECT_TRUE(builtClass == "UI_TextEdit" || builtClass == "AutoHintTextEdit") << builtClass;
        } else {
            EXPECT_EQ(builtClass, control.archiveClass);
        }
        if (control.id != control.archiveClass)
            expectedNamed.insert(control.id);
    }
    // Besides the catalogue's, only default ids (the class name) may stand in the layout.
    std::set<std::string> named;
    for (const auto& [id, node] : archived)
        if (id != ShortName(node.adapter))
            named.insert(id);
    EXPECT_EQ(named, expectedNamed);

    // Texts as authored and as shown.
    for (const CatalogueControl& control : layout.controls) {
        if (!control.text)
            continue;
        SCOPED_TRACE(control.id);
        ASSERT_TRUE(archived[control.id].text);
        EXPECT_EQ(Fnd::ToUTF8(*archived[control.id].text), *control.text);
        EXPECT_EQ(Fnd::ToUTF8(DisplayText(*built.controls.at(control.id))), DefaultText(*control.text));
    }
    // No reference is left unresolved anywhere: texts, tooltips, popup items.
    ForEachNode(*built.root, [](const UI_Node& node) {
        EXPECT_EQ(DisplayText(node).find(u"$$$"), Fnd::WString::npos) << node.UI_GetNodeID();
        EXPECT_EQ(node.UI_GetToolTip().find(u"$$$"), Fnd::WString::npos) << node.UI_GetNodeID();
        if (auto* popup = dynamic_cast<const fluxui::controls::UI_Popup*>(&node)) {
            for (const auto& item : popup->GetItems()) {
                EXPECT_EQ(item.text.find(u"$$$"), Fnd::WString::npos) << node.UI_GetNodeID();
            }
        }
    });
    // Only hint edits are marked for the sections' custom factory.
    for (const auto& [id, node] : archived) {
        if (!node.className)
            continue;
        EXPECT_EQ(*node.className, u"AutoHintTextEdit") << id;
        EXPECT_EQ(ShortName(node.adapter), "UI_TextEdit_S") << id;
        EXPECT_STREQ(built.controls.at(id)->UI_GetClassName(), "AutoHintTextEdit") << id;
    }
}

INSTANTIATE_TEST_SUITE_P(Catalogue, EachLayout, ::testing::ValuesIn(LayoutCatalogue()),
                         [](const auto& info) { return info.param.name; });

TEST(LayoutStore, HoldsExactlyTheCataloguesLayouts) {
    std::set<std::string> stored;
    for (std::string_view name : IGD::StoredResourceNames("XML"))
        stored.emplace(name);
    std::set<std::string> catalogued;
    for (const CatalogueLayout& layout : LayoutCatalogue()) {
        std::string upper = layout.name;
        std::transform(upper.begin(), upper.end(), upper.begin(), ::toupper);
        catalogued.insert(upper);
    }
    EXPECT_EQ(catalogued.size(), 32u);
    EXPECT_EQ(stored, catalogued);
}

// Every state a layout authors that differs from its class's default, over all layouts, so that
// a state set by mistake shows as well as one missing: popup items included.
TEST(LayoutStates, AreExactlyThoseTheSectionsExpect) {
    std::set<std::string> states;
    for (const CatalogueLayout& layout : LayoutCatalogue()) {
        const BuiltLayout built = BuildStoredLayout(layout.name);
        ForEachNode(*built.root, [&](const UI_Node& node) {
            const std::string where = layout.name + "/" + node.UI_GetNodeID();
            if (!node.UI_IsShown())
                states.insert(where + " hidden");
            if (!node.UI_IsEnabled())
                states.insert(where + " disabled");
            if (auto* control = dynamic_cast<const fluxui::controls::UI_ControlView*>(&node);
                control && control->IsDownState())
                states.insert(where + " down");
            if (auto* checkbox = dynamic_cast<const fluxui::controls::UI_Checkbox*>(&node);
                checkbox && checkbox->IsChecked())
                states.insert(where + " checked");
            if (auto* popup = dynamic_cast<const fluxui::controls::UI_Popup*>(&node)) {
                if (!popup->GetDrawDivider())
                    states.insert(where + " no divider");
                // Items fixed by the layout; every other popup is filled by code.
                std::string items;
                for (const auto& item : popup->GetItems())
                    items += "|" + Fnd::ToUTF8(item.text);
                if (!items.empty())
                    states.insert(where + " items " + items);
                if (popup->GetValue() != -1)
                    states.insert(where + " value " + std::to_string(popup->GetValue()));
            }
        });
    }
    const std::set<std::string> expected{
        "igdBackupDestinationHeader/BackupDestinationCheckbox checked",
        "igdKilnHostedBackupDestinationHeader/BackupDestinationCheckbox checked",
        "igdVaultDestinationHeader/TempLocalCopyCheckbox checked",
        "igdPathSetting/DestinationPopup hidden",
        "igdKilnHostedPathSetting/DestinationPopup hidden",
        "igdRenameTemplateNormalModeField/AutoHintTextEdit hidden",
        "igdMetadataTemplateEditModeHeader/UI_StaticText disabled",
        "igdRenameTemplateEditModeHeader/UI_StaticText disabled",
        "igdRenameTemplateSample/UI_StaticText disabled",
        "igdRenameTemplateEditModeHeader/UI_Divider disabled",
        "igdPresetManagementNormalModeHeader/UI_Divider disabled",
        "igdMetadataTemplateAddField/UI_Divider down",
        "igdRenameTemplateAddField/UI_Divider down",
        "igdRenameTemplateAddField/UI_PicturePopup no divider",
        "igdVerifySetting/VerifyPopup items |MD5 comparison|File size comparison|Bit-by-bit comparison",
        "igdPresetManagementNormalModeHeader/ApplyScopePopup items |Apply to all destinations|Apply to primary "
        "destination only",
        "igdPathSetting/DestinationPopup items ||Browse for Location...",
        "igdKilnHostedPathSetting/DestinationPopup items ||Browse for Location...",
        "igdRenameTemplateEditModeField/UI_Popup items |Item",
    };
    EXPECT_EQ(states, expected);
}

TEST(LayoutStates, StartNumberKeepsTheFilesRangeAboveThirtyTwoBits) {
    const BuiltLayout built = BuildStoredLayout("igdRenameTemplateNormalModeField");
    auto* number =
        dynamic_cast<fluxui::controls::UI_NumberEdit*>(built.controls.at("UI_UserDefStartNumber").get());
    ASSERT_TRUE(number);
    EXPECT_EQ(number->GetMinValue(), 1.0);
    EXPECT_EQ(number->GetMaxValue(), 4294970000.0);
    EXPECT_EQ(number->GetDecimalPlaces(), 0);
    EXPECT_EQ(number->GetNumber(), 1.0);
    EXPECT_EQ(number->GetValue(), u"1");
    number->SetNumber(4294969999.0, false);
    EXPECT_EQ(number->GetValue(), u"4294969999");
}

} // namespace
} // namespace igd::test
