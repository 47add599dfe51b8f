// What "looks right" can be checked by: in every layout, at its own width and stretched to the
// widths a dialog gives it, no control leaves its parent and no two shown siblings overlap.
#include <set>

#include <gtest/gtest.h>

#include "BuiltLayout.h"
#include "LayoutCatalogue.h"

namespace igd::test {
namespace {

using fluxcore::geom::RectF;
using fluxui::ui::UI_Node;

// Siblings that share one place on purpose: the row's field type shows one of them at a time.
const std::set<std::pair<std::string, std::set<std::string>>> kAlternates{
    {"igdRenameTemplateEditModeField", {"AutoHintTextEdit", "UI_OutlineBox"}},
    {"igdRenameTemplateNormalModeField", {"AutoHintTextEdit", "UI_OutlineBox", "UI_UserDefStartNumber"}},
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

std::string Describe(const RectF& r) {
    return "(" + std::to_string(r.left) + ", " + std::to_string(r.top) + ", " + std::to_string(r.width) +
           ", " + std::to_string(r.height) + ")";
}

void CheckChildren(const std::string& layout, const UI_Node& parent) {
    const RectF bounds = parent.UI_GetLocalRectF();
    std::vector<const UI_Node*> shown;
    for (auto child = parent.ChildBegin(); child != parent.ChildEnd(); ++child) {
        const UI_Node& node = **child;
        const RectF rect = node.UI_GetLocalRectF(true);
        const std::string where = layout + "/" + node.UI_GetNodeID() + " " + Describe(rect);
        EXPECT_FALSE(rect.IsEmpty()) << where;
        EXPECT_GE(rect.left, 0.0f) << where;
        EXPECT_GE(rect.top, 0.0f) << where;
        EXPECT_LE(rect.Right(), bounds.width) << where << " in " << Describe(bounds);
        EXPECT_LE(rect.Bottom(), bounds.height) << where << " in " << Describe(bounds);
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

class LayoutGeometry : public ::testing::TestWithParam<CatalogueLayout> {};

TEST_P(LayoutGeometry, FitsAtItsOwnSizeAndWhenTheSectionStretchesIt) {
    const CatalogueLayout& layout = GetParam();
    for (float width : {layout.width, 300.0f, 360.0f, 420.0f}) {
        if (width < layout.width)
            continue;
        SCOPED_TRACE(width);
        const BuiltLayout built = BuildStoredLayout(layout.name);
        built.root->UI_SetLocalRectF({0, 0, width, layout.height});
        CheckChildren(layout.name, *built.root);
    }
}

// A control that ends at the right margin keeps to it, so that rows stay aligned at any width.
TEST_P(LayoutGeometry, KeepsTheRightMarginWhenStretched) {
    const CatalogueLayout& layout = GetParam();
    const BuiltLayout authored = BuildStoredLayout(layout.name);
    const BuiltLayout stretched = BuildStoredLayout(layout.name);
    const float grow = 160.0f;
    stretched.root->UI_SetLocalRectF({0, 0, layout.width + grow, layout.height});
    auto a = authored.root->ChildBegin();
    auto s = stretched.root->ChildBegin();
    for (; a != authored.root->ChildEnd(); ++a, ++s) {
        const RectF before = (*a)->UI_GetLocalRectF(true);
        const RectF after = (*s)->UI_GetLocalRectF(true);
        SCOPED_TRACE(layout.name + "/" + (*a)->UI_GetNodeID());
        const bool followsRight = after.Right() == before.Right() + grow;
        EXPECT_TRUE(after == before || followsRight);
        if (before.Right() >= layout.width - 10.0f) {
            EXPECT_TRUE(followsRight);
        }
        EXPECT_EQ(after.top, before.top);
        EXPECT_EQ(after.height, before.height);
    }
}

INSTANTIATE_TEST_SUITE_P(Catalogue, LayoutGeometry, ::testing::ValuesIn(LayoutCatalogue()),
                         [](const auto& info) { return info.param.name; });

} // namespace
} // namespace igd::test
