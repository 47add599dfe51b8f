// The minimum-metadata step over the local panel host: whether a panel is shown, what the one
// finished message carries on each path, and a modeless panel's wait.
#include <gtest/gtest.h>

#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "IGD/MinimumMetadataApi.h"
#include "PanelkitManager/LocalPanelHost.h"
#include "Plug/SDKErrors.h"
#include "Proj/Backend.h"
#include "Proj/PreferenceStore.h"
#include "QL/IngestMessages.h"
#include "QL/PanelkitEvents.h"
#include "QL/SRProject.h"
#include "settings/SettingKeys.h"
#include "support/PanelTurns.h"
#include "support/ScopedIgdHome.h"
#include "support/ScriptedInteractionDriver.h"

namespace igd::test {
namespace {

using namespace PanelkitManager;

std::string Manifest(const std::string& id, const std::string& mode = "modal") {
    return "<panel id=\"" + id + "\" title=\"Title of " + id + "\" mode=\"" + mode + "\" width=\"400\" height=\"220\"/>";
}
const std::string kForm = R"(<form storeEmptyInfo="false">
  <namespace uri="http://ns.example/shoot/" prefix="shoot">
    <field key="production" label="Production" required="true"/>
    <field key="scene" label="Scene"/>
  </namespace>
  <field key="keywords" label="Keywords" kind="keywords"/>
</form>)";

// A host whose stages cannot be found, as when a panel fails to load.
class StagelessHost : public PanelHost {
public:
    explicit StagelessHost(std::shared_ptr<PanelHost> inner) : inner_(std::move(inner)) {}
    std::size_t GetNumExtensions() override { return inner_->GetNumExtensions(); }
    IExtensionRef GetExtensionByIndex(std::size_t index) override { return inner_->GetExtensionByIndex(index); }
    IExtensionRef GetExtensionByID(const std::string& id) override { return inner_->GetExtensionByID(id); }
    IStageRef GetStage(std::int32_t) override { return nullptr; }
    void ParkStage(std::int32_t id) override { inner_->ParkStage(id); }
    void UnparkStage(std::int32_t id) override { inner_->UnparkStage(id); }
    void UnloadStage(std::int32_t id) override { inner_->UnloadStage(id); }

private:
    std::shared_ptr<PanelHost> inner_;
};

class DoMinimumMetadataDialogTest : public testing::Test, public Fnd::Listener {
protected:
    DoMinimumMetadataDialogTest() { Fnd::StationUtils::AddListener(QL::kStation_IngestMedia, this); }
    ~DoMinimumMetadataDialogTest() override {
        Fnd::StationUtils::RemoveListener(QL::kStation_IngestMedia, this);
        PanelHost::Install(nullptr);
    }
    void ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) override {
        if (const auto* finished = Fnd::MessageCast<QL::MiniMetadataFinishedMessage>(message))
            finished_.push_back(*finished);
    }

    void AddPanel(const std::string& folder, const std::string& id, const std::string& mode = "modal") {
        home_.MakeFile("panels/" + folder + "/manifest.xml", Manifest(id, mode));
        home_.MakeFile("panels/" + folder + "/form.xml", kForm);
    }
    std::shared_ptr<PanelHost> UseHost() {
        host_ = MakeLocalPanelHost({{home_.Path() + "/panels"}});
        PanelHost::Install(host_);
        return host_;
    }
    // Runs the step and lets every posted message through: the one finished message, or none.
    boost::intrusive_ptr<fluxui::ui::UI_Dialog> Run(std::vector<Fnd::WString> files = {u"/card/A001.MOV"}) {
        auto dialog = IGD::DoMinimumMetadataDialog(files);
        Fnd::GetDefaultQueue().Drain();
        return dialog;
    }
    const QL::MiniMetadataFinishedMessage& OnlyMessage() {
        if (finished_.size() != 1)
            throw std::runtime_error("expected one finished message, got " + std::to_string(finished_.size()));
        return finished_.front();
    }
    static bool IsEmpty(const QL::MinimumMetadataResult& result) {
        return result.namespaces.empty() && result.keywords.empty() && !result.applyToAllDestinations;
    }

    ScopedIgdHome home_;
    Proj::ScopedBackend backend_{Fnd::InterfaceRef<Proj::IPreferences>(
        Proj::PreferenceStore::Open(Proj::PreferenceStore::DefaultPath()).get())};
    ScopedInteractionDriver ui_;
    std::shared_ptr<PanelHost> host_;
    std::vector<QL::MiniMetadataFinishedMessage> finished_;
};

TEST_F(DoMinimumMetadataDialogTest, APanelIsLookedForUnlessThePreferenceIsFalse) {
    AddPanel("shoot", "site.igd.panel.minimumMetadata");
    UseHost();
    auto preferences = Proj::GetPreferences();
    const Proj::PreferenceKey key(IGD::kMinimumMetadataDialogEnable.name);
    // Missing, unreadable (a text where a bool belongs) and true all show the panel.
    for (int variant = 0; variant < 3; ++variant) {
        if (variant == 1)
            Proj::WritePreference(*preferences, key, Fnd::WString(u"banana"));
        if (variant == 2)
            Proj::WritePreference(*preferences, key, true);
        ui_->QueueModalTurn(FillPanelAndPress({}, "cancel"));
        Run();
        EXPECT_FALSE(OnlyMessage().success) << variant;
        finished_.clear();
    }
    Proj::WritePreference(*preferences, key, false);
    EXPECT_FALSE(Run());
    EXPECT_TRUE(OnlyMessage().success);
    EXPECT_TRUE(IsEmpty(OnlyMessage().result));
    EXPECT_EQ(ui_->ModalBegins(), 3);
}

TEST_F(DoMinimumMetadataDialogTest, WithoutAMatchingPanelTheIngestGoesOnEmpty) {
    // The id must hold the minimum-metadata id with its case.
    AddPanel("other", "site.igd.panel.MinimumMetadata");
    UseHost();
    EXPECT_FALSE(Run());
    EXPECT_TRUE(OnlyMessage().success);
    EXPECT_TRUE(IsEmpty(OnlyMessage().result));
    EXPECT_EQ(ui_->ModalBegins(), 0);
}

TEST_F(DoMinimumMetadataDialogTest, AModalPanelAnswersThroughTheMessageWithTheFirstMatchingPanel) {
    AddPanel("a", "first.igd.panel.minimumMetadata");
    AddPanel("b", "second.igd.panel.minimumMetadata");
    UseHost();
    Fnd::WString title;
    ui_->QueueModalTurn([&](Fnd::IModalSession& session) {
        title = session.ModalTitle();
        auto& window = dynamic_cast<fluxui::ui::OS_Dialog&>(session);
        EXPECT_EQ(window.UI_GetNodeID(), "PanelkitModalDialog");
        // Return belongs to the fields: it does not press the panel's OK.
        fluxui::ui::KeyboardEvent returnKey;
        returnKey.key = fluxui::ui::Key::Return;
        window.UI_FindNodeByID("field.scene")->UI_GainKeyboardFocus();
        window.DispatchKeyboardEvent(returnKey);
        EXPECT_FALSE(session.IsCloseRequested());
        FillPanelAndPress({{"production", u"Night Shoot"}, {"scene", u"4B"}, {"keywords", u"rain, night, rain"}},
                          "ok", true)(session);
    });
    EXPECT_FALSE(Run({u"/card/A001.MOV", u"/card/A002.MOV"}));
    EXPECT_EQ(title, u"Title of first.igd.panel.minimumMetadata");
    const auto& message = OnlyMessage();
    ASSERT_TRUE(message.success);
    ASSERT_EQ(message.result.namespaces.size(), 1u);
    const auto& shoot = *message.result.namespaces.front();
    EXPECT_EQ(shoot.schemaNamespace, u"http://ns.example/shoot/");
    EXPECT_EQ(shoot.presetName, u"shoot");
    EXPECT_EQ(shoot.values.at(u"production"), u"Night Shoot");
    EXPECT_EQ(shoot.values.at(u"scene"), u"4B");
    EXPECT_EQ(message.result.keywords, (std::set<Fnd::WString>{u"night", u"rain"}));
    EXPECT_TRUE(message.result.applyToAllDestinations);
    EXPECT_EQ(ui_->ModalEnds(), 1);

    const auto announced = QL::SRProject::GetInstance()->GetAnnouncedItems();
    ASSERT_EQ(announced.size(), 2u);
    EXPECT_EQ(announced[1].path, u"/card/A002.MOV");
    // The run ended with the stage unloaded and a fresh one ready for the next ingest.
    const auto extension = host_->GetExtensionByID("first.igd.panel.minimumMetadata");
    EXPECT_TRUE(extension->IsStagePrepared());
    EXPECT_FALSE(host_->GetExtensionByID("second.igd.panel.minimumMetadata")->IsStagePrepared());
}

TEST_F(DoMinimumMetadataDialogTest, AStageClosedWithoutAnAnswerPostsNothing) {
    AddPanel("a", "site.igd.panel.minimumMetadata");
    UseHost();
    ui_->QueueModalTurn([](Fnd::IModalSession&) {
        const auto extension = GetExtensionByID("site.igd.panel.minimumMetadata");
        Fnd::StationUtils::PostMessageToUIThread(
            QL::GetPanelkitStationID(), QL::StageEvent(QL::kStageEventClosed, extension->GetStageID()), false);
    });
    Run();
    EXPECT_TRUE(finished_.empty());
    EXPECT_EQ(ui_->ModalEnds(), 1);
}

TEST_F(DoMinimumMetadataDialogTest, AMissingModalStageLetsTheIngestGoOnAndLogsForTheHost) {
    AddPanel("a", "site.igd.panel.minimumMetadata");
    PanelHost::Install(std::make_shared<StagelessHost>(MakeLocalPanelHost({{home_.Path() + "/panels"}})));
    Plug::SDKErrors::ClearSDKErrorString();
    EXPECT_FALSE(Run());
    EXPECT_TRUE(OnlyMessage().success);
    EXPECT_TRUE(IsEmpty(OnlyMessage().result));
    EXPECT_EQ(Plug::SDKErrors::GetSDKErrorString(), u"Fail to load minimum metadata panel.");
    EXPECT_EQ(ui_->ModalBegins(), 0);
}

TEST_F(DoMinimumMetadataDialogTest, AModelessPanelIsWaitedForUntilItsAnswerOrItsUnloading) {
    AddPanel("a", "site.igd.panel.minimumMetadata", "modeless");
    UseHost();
    auto dialog = Run();
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(finished_.empty());
    EXPECT_FALSE(dialog->IsRunningModal());
    // The panel answers on the bus from wherever it shows itself.
    Fnd::StationUtils::PostMessageToUIThread(
        QL::GetPanelkitStationID(),
        QL::PanelbusEvent(Event::GetPanelkitEventTypeMinimumMetadata(),
                          u"<a status=\"ok\"><minimumMetadata><keywords><keyword>k</keyword></keywords>"
                          u"</minimumMetadata></a>"),
        false);
    Fnd::GetDefaultQueue().Drain();
    EXPECT_TRUE(OnlyMessage().success);
    EXPECT_EQ(OnlyMessage().result.keywords, std::set<Fnd::WString>{u"k"});
    dialog.reset();
    finished_.clear();

    // Unloaded while waited for: failure, and once only.
    dialog = Run();
    ASSERT_TRUE(dialog);
    const auto extension = host_->GetExtensionByID("site.igd.panel.minimumMetadata");
    host_->UnloadStage(extension->GetStageID());
    host_->UnloadStage(extension->GetStageID());
    Fnd::GetDefaultQueue().Drain();
    EXPECT_FALSE(OnlyMessage().success);
}

} // namespace
} // namespace igd::test
