// The protocol run over a tree, and binding controls.
#include <gtest/gtest.h>

#include "fluxcore/ConfigError.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_StaticText.h"
#include "tests/transfer/SectionTestSupport.h"
#include "transfer/SectionTree.h"

namespace igd::test {
namespace {

using fluxui::controls::UI_Checkbox;
using fluxui::controls::UI_StaticText;
using wrangler::ui::SectionViewEx;
using wrangler::ui::SectionViewExRef;
using Journal = std::vector<std::string>;

// Makes its children as the protocol says a section does, in CreateChildSections, and notes the
// parent it hangs under while binding.
class ParentSection : public RecordingSection {
public:
    ParentSection(std::string name, Journal& journal, std::vector<SectionViewExRef> toCreate = {})
        : RecordingSection(std::move(name), journal), toCreate_(std::move(toCreate)) {}
    SectionViewEx* parentAtBind = nullptr;

protected:
    void BindControls() override {
        RecordingSection::BindControls();
        parentAtBind = GetParentSection();
    }
    void CreateChildSections() override {
        RecordingSection::CreateChildSections();
        for (const SectionViewExRef& child : toCreate_)
            InsertChildSection(child);
    }

private:
    std::vector<SectionViewExRef> toCreate_;
};
using ChildSection = ParentSection;

TEST(SectionTree, RunsTheProtocolDepthFirstInItsOrder) {
    Journal journal;
    auto grandchild = Make<ChildSection>("G", journal);
    auto first = Make<ChildSection>("C1", journal, std::vector<SectionViewExRef>{grandchild});
    auto second = Make<ChildSection>("C2", journal);
    second->UI_Show(false);
    auto root = Make<ParentSection>("P", journal, std::vector<SectionViewExRef>{first, second});
    TestResources resources;
    wrangler::ui::BuildSectionTree(*root, resources, nullptr);

    const Journal expected{
        "P.Bind",  "P.Wire",    "P.Create",         "C1.Bind",          "C1.Wire",   "C1.Create", "G.Bind",
        "G.Wire",  "G.Create",  "G.ChildrenBuilt",  "C1.ChildrenBuilt", "C1.Update", "P.Update",  "C2.Bind",
        "C2.Wire", "C2.Create", "C2.ChildrenBuilt", "P.ChildrenBuilt",  "P.Update"};
    EXPECT_EQ(journal, expected);
    EXPECT_EQ(first->parentAtBind, root.get());
    EXPECT_EQ(grandchild->parentAtBind, first.get());
    EXPECT_TRUE(second->UI_IsShown());
    EXPECT_TRUE(root->IsBuilt() && first->IsBuilt() && grandchild->IsBuilt());
}

TEST(SectionTree, BuildingAgainDoesNothingAndALateSectionIsBuiltAlone) {
    Journal journal;
    auto root = Make<ParentSection>("P", journal, std::vector<SectionViewExRef>{Make<ChildSection>("C", journal)});
    TestResources resources;
    wrangler::ui::BuildSectionTree(*root, resources, nullptr);
    auto late = Make<ChildSection>("L", journal);
    root->InsertChildSection(late);
    journal.clear();
    wrangler::ui::BuildSectionTree(*late, resources, nullptr);
    wrangler::ui::BuildSectionTree(*root, resources, nullptr);
    EXPECT_EQ(journal, (Journal{"L.Bind", "L.Wire", "L.Create", "L.ChildrenBuilt"}));
    EXPECT_EQ(root->GetChildSections().size(), 2u);
}

// Adds a child the first time it loads, as a transfer section adds its backups.
class GrowingSection : public RecordingSection {
public:
    GrowingSection(Journal& journal) : RecordingSection("P", journal), journal_(journal) {}

protected:
    void LoadFromSettings() override {
        RecordingSection::LoadFromSettings();
        if (GetChildSections().size() < 2)
            InsertChildSection(Make<RecordingSection>("New", journal_));
    }

private:
    Journal& journal_;
};

TEST(SectionTree, ApplyingSettingsReachesChildrenAddedWhileLoading) {
    Journal journal;
    auto root = Make<GrowingSection>(journal);
    auto child = Make<RecordingSection>("C", journal);
    child->InsertChildSection(Make<RecordingSection>("G", journal));
    root->InsertChildSection(child);

    wrangler::ui::ApplySettingsToTree(*root);
    EXPECT_EQ(journal, (Journal{"P.Load", "C.Load", "G.Load", "New.Load"}));
    journal.clear();
    wrangler::ui::ApplySettingsToTree(*root);
    EXPECT_EQ(journal, (Journal{"P.Load", "C.Load", "G.Load", "New.Load"}));
}

// Binds one control of the class it is told.
template <typename Control> class BindingSection : public SectionViewEx {
public:
    BindingSection(std::string id) : SectionViewEx(u"Bind", "igdTestBinding"), id_(std::move(id)) {}
    boost::intrusive_ptr<Control> bound;

protected:
    void BindControls() override { bound = BindControl<Control>(id_); }

private:
    std::string id_;
};

TEST(SectionBinding, BindsByClassAndAMistypedOrMissingControlRaisesTheConversionError) {
    TestResources resources;
    resources.AddLayout("igdTestBinding", 200, 40,
                        {{LayoutControlKind::StaticText, "Label", {5, 0, 100, 20}},
                         {LayoutControlKind::Checkbox, "Check", {5, 20, 100, 20}}});
    auto section = Make<BindingSection<UI_Checkbox>>("Check");
    wrangler::ui::BuildSectionTree(*section, resources, nullptr);
    EXPECT_EQ(section->bound.get(), section->FindControl("Check").get());
    ASSERT_NE(section->bound, nullptr);
    auto general = Make<BindingSection<fluxui::controls::UI_ControlView>>("Label");
    wrangler::ui::BuildSectionTree(*general, resources, nullptr);
    EXPECT_NE(general->bound, nullptr) << "a base class of the control binds as well";

    for (auto wrong : {SectionViewExRef(Make<BindingSection<UI_Checkbox>>("Label")),
                       SectionViewExRef(Make<BindingSection<UI_StaticText>>("Missing"))}) {
        try {
            wrangler::ui::BuildSectionTree(*wrong, resources, nullptr);
            ADD_FAILURE() << "bound";
        } catch (const fluxcore::config::Error& error) {
            EXPECT_EQ(error.Key(), "$$$/fluxcore/utility/Error/InvalidTypeConversion");
            EXPECT_EQ(error.Text(), u"Invalid type conversion.");
        }
        EXPECT_FALSE(wrong->IsBuilt());
    }
}

} // namespace
} // namespace igd::test
