// The settings pane as the dialog and an embedding host get it: which sections stack in what order
// for each host and project, where the pane and its bar go as the window resizes, how the scroll
// range follows a section that folds, and the summary that stays empty.
#include <gtest/gtest.h>

#include "AppFrame/ColorManager.h"
#include "Fnd/StationUtils.h"
#include "IGD/IngestSettingsApi.h"
#include "IGD/LayoutPreview.h"
#include "QL/FilePresetService.h"
#include "QL/IngestMessages.h"
#include "fluxcore/ConfigError.h"
#include "shell/settingspane/IngestSettingView.h"
#include "shell/summary/IngestSummaryCategory.h"
#include "support/ScopedIgdHome.h"
#include "tests/settings/SettingsFixture.h"
#include "transfer/SectionTree.h"
#include "transfer/local/LocalTransferSection.h"

namespace igd::test {
namespace {

using fluxcore::geom::RectF;

class SettingsPaneTest : public SettingsFixture {
protected:
    SettingsPaneTest() {
        IngestResourceManager();
        QL::SetPresetService(std::make_shared<QL::FilePresetService>(QL::DefaultPresetFolders()));
    }
    ~SettingsPaneTest() override {
        pane.reset();
        settings->SetSettingsChangedCallback({});
        QL::SetPresetService(nullptr);
    }

    // The pane over the process's settings as they load from the test's store.
    IngestSettingView& Open(bool withBar, float width = 330, float height = 500) {
        settings->ResetToDefaults();
        settings->LoadSettings();
        pane = new IngestSettingView(nullptr, withBar ? &dialog : nullptr);
        pane->Build(withBar);
        pane->UI_SetLocalRectF({0, 0, width, height});
        return *pane;
    }
    IngestSettingsSectionContainer& Stack() const { return *pane->GetContainerView()->GetSectionContainer(); }
    static RectF Placed(const fluxui::ui::UI_Node& node) { return node.UI_GetLocalRectF(true); }

    ScopedIgdHome home;
    std::shared_ptr<IngestSettingsController> settings = IngestSettingsController::GetInstance();
    fluxui::ui::UI_Dialog dialog{nullptr, u"Ingest"};
    boost::intrusive_ptr<IngestSettingView> pane;
};

TEST_F(SettingsPaneTest, SectionsStackInOrderWithTheTransferFormOfTheHostAndProject) {
    const struct {
        int hostKind;
        bool remote;
        const char* transfer;
        const char* layout;
    } cases[]{{0, false, "LocalTransferSection", "igdLocalTransferHeader"},
              {5, false, "LocalTransferSection", "igdKilnHostedTransferHeader"},
              {8, false, "LocalTransferSection", "igdKilnHostedTransferHeader"},
              {0, true, "VaultTransferSection", "igdVaultTransferHeader"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.transfer) + " kind " + std::to_string(c.hostKind));
        HostApp::SetApplicationType(c.hostKind);
        AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(c.remote));
        Open(false);
        const auto& sections = Stack().GetChildSections();
        std::vector<std::string> kinds;
        for (const auto& section : sections)
            kinds.emplace_back(section->UI_GetClassName());
        EXPECT_EQ(kinds, (std::vector<std::string>{"IngestSummarySection", c.transfer, "MetadataTemplateSection",
                                                   "RenameTemplateSection"}));
        EXPECT_EQ(sections[1]->GetLayoutName(), c.layout);
        EXPECT_EQ(sections[0]->GetTitle(), u"Ingest Options Summary");
            // Only the local form switches transfer on and off from its header.
        EXPECT_EQ(sections[1]->UI_FindNodeByID(wrangler::ui::kPowerOnName) != nullptr, !c.remote);
        // Stacked top to bottom, six apart.
        for (std::size_t i = 1; i < sections.size(); ++i)
            EXPECT_EQ(Placed(*sections[i]).top, Placed(*sections[i - 1]).Bottom() + 6.0f);
    }
}

TEST_F(SettingsPaneTest, TheBarComesOnlyWithTheDialogAndTakesTheFootUnlessHosted) {
    IngestSettingView& embedded = Open(false, 400, 600);
    EXPECT_EQ(embedded.GetControlView(), nullptr);
    EXPECT_EQ(Placed(*embedded.GetContainerView()), (RectF{0, 6, 394, 534}));

    IngestSettingView& full = Open(true, 400, 600);
    ASSERT_NE(full.GetControlView(), nullptr);
    EXPECT_EQ(Placed(*full.GetControlView()), (RectF{0, 540, 400, 40}));
    EXPECT_FALSE(full.GetControlView()->GetIngestButton()->UI_IsEnabled());
    full.SetIngestEnabled(true);
    EXPECT_TRUE(full.GetControlView()->GetIngestButton()->UI_IsEnabled());
    full.UI_SetLocalRectF({0, 0, 500, 300});
    EXPECT_EQ(Placed(*full.GetContainerView()), (RectF{0, 6, 494, 234}));
    EXPECT_EQ(Placed(*full.GetControlView()), (RectF{0, 240, 500, 40}));

    // A hosted application keeps no room for the bar, so a bar it asks for lies past the edge.
    HostApp::SetApplicationType(5);
    IngestSettingView& hosted = Open(true, 400, 600);
    EXPECT_EQ(Placed(*hosted.GetContainerView()), (RectF{0, 6, 394, 594}));
    EXPECT_EQ(Placed(*hosted.GetControlView()).top, 600.0f);
}

TEST_F(SettingsPaneTest, FoldingASectionRefitsTheScrollRangeAndMovesOnlyThoseBelow) {
    Open(false, 330, 300);
    auto& scroll = *pane->GetContainerView()->GetScrollView();
    const auto& sections = Stack().GetChildSections();
    const auto contentHeight = [&] { return scroll.GetContentRectF().height; };
    EXPECT_EQ(contentHeight(), Stack().GetSectionSize().y + 1.0f);
    EXPECT_EQ(scroll.GetContentRectF().width, 330.0f - 6.0f - 14.0f);
    EXPECT_TRUE(scroll.GetScrollBarY().UI_IsShown());

    const float open = contentHeight();
    const float transferTop = Placed(*sections[1]).top;
    const float summaryHeight = Placed(*sections[0]).height;
    sections[0]->ToggleByUser();
    const float shrink = summaryHeight - Placed(*sections[0]).height;
    EXPECT_GT(shrink, 0.0f);
    EXPECT_EQ(contentHeight(), open - shrink);
    EXPECT_EQ(Placed(*sections[1]).top, transferTop - shrink);

    // Everything folded fits: the bar goes, and the range with it.
    for (const auto& section : sections)
        section->SetOpened(false);
    EXPECT_EQ(contentHeight(), Stack().GetSectionSize().y + 1.0f);
    EXPECT_FALSE(scroll.GetScrollBarY().UI_IsShown());
}

class RecordingSketcher : public fluxui::sketcher::Sketcher {
public:
    void FillRect(const RectF& rect, const fluxui::sketcher::ColorRGBA& color) override { fills.push_back({rect, color}); }
    void DrawLine(fluxcore::geom::PointF, fluxcore::geom::PointF, const fluxui::sketcher::ColorRGBA&, float) override {}
    void DrawOutline(const RectF&, const fluxui::sketcher::ColorRGBA&) override {}
    std::vector<std::pair<RectF, fluxui::sketcher::ColorRGBA>> fills;
};

TEST_F(SettingsPaneTest, ThePaneFillsUnderTheDividerAndSectionsKnowWhenTheBarShows) {
    Open(false, 330, 200);
    RecordingSketcher sketcher;
    pane->UI_Draw(sketcher);
    ASSERT_FALSE(sketcher.fills.empty());
    EXPECT_EQ(sketcher.fills.front().first, (RectF{-6, 0, 336, 200}));
    EXPECT_EQ(sketcher.fills.front().second, AppFrame::ColorManager::GetColor(AppFrame::kColor_PanelBackground));
    for (const auto& section : Stack().GetChildSections())
        EXPECT_TRUE(section->IsScrollBarShown());

    pane->UI_SetLocalRectF({0, 0, 330, 5000});
    pane->UI_Draw(sketcher);
    for (const auto& section : Stack().GetChildSections())
        EXPECT_FALSE(section->IsScrollBarShown());
}

TEST_F(SettingsPaneTest, TheSummaryTakesNoTargetBinAnswerAndItsLinesBindTheirText) {
    Open(false);
    QL::UpdateTargetBinMessage answer;
    answer.binName = u"Day 1";
    Fnd::StationUtils::BroadcastMessage(QL::kStation_IngestMedia, answer);
    EXPECT_TRUE(Stack().GetChildSections().front()->GetChildSections().empty());

    const auto built = [](IngestSummaryDetail* line) {
        boost::intrusive_ptr<IngestSummaryDetail> kept(line);
        wrangler::ui::BuildSectionTree(*kept, *IngestResourceManager(), nullptr);
        return kept;
    };
    EXPECT_TRUE(built(new IngestSummaryDetail)->GetText()->UI_IsEnabled());
    EXPECT_FALSE(built(new IngestSummaryCategory)->GetText()->UI_IsEnabled());

    // A layout without the text is a fault of the layout, told in the toolkit's words.
    struct Misbound : IngestSummaryDetail {
        Misbound() : IngestSummaryDetail("igdSummaryEmptyBottom") {}
    };
    try {
        built(new Misbound);
        ADD_FAILURE() << "bound a text that is not there";
    } catch (const fluxcore::config::Error& error) {
        EXPECT_EQ(error.Text(), u"Invalid type conversion.");
    }
}

TEST_F(SettingsPaneTest, CreateIngestViewGivesTheEmbeddedPaneAndReportsChanges) {
    settings->LoadSettings();
    settings->SetMetadataEditMode(true);
    settings->SetRenameEditMode(true);
    int changes = 0;
    const IngestViewRef view = CreateIngestView(nullptr, [&] { ++changes; });
    pane = dynamic_cast<IngestSettingView*>(view.get());
    ASSERT_NE(pane, nullptr);
    EXPECT_TRUE(view->UI_IsShown());
    EXPECT_EQ(pane->GetControlView(), nullptr);
    EXPECT_FALSE(settings->GetMetadataEditMode());
    EXPECT_FALSE(settings->GetRenameEditMode());

    auto& transfer = dynamic_cast<LocalTransferSection&>(*Stack().GetChildSections()[1]);
    transfer.GetTransferClipsCheckbox().Press();
    EXPECT_EQ(changes, 1);
}

} // namespace
} // namespace igd::test
