#include "shell/mediapane/IngestTopView.h"

#include "Fnd/StationUtils.h"
#include "HostApp/ApplicationType.h"
#include "fluxmediabrowser/FavoritesPref.h"
#include "fluxmediabrowser/PlayerFactory.h"
#include "pipeline/gathering/GatherCheckedItems.h"

namespace IGD {
namespace {

constexpr int kHostShowingBrowserAlone = 13;
constexpr const char* kCommandContext = "ingestdialog";

// The framework's own select-all and deselect-all, handled here though not declared in the
// dialog's context.
constexpr int kCommandSelectAll = 57642;
constexpr int kCommandDeselectAll = 11303;

bool IsBrowserCommand(int id) {
    return (id >= 30205 && id <= 30214) || id == kCommandSelectAll || id == kCommandDeselectAll;
}

} // namespace

IngestTopView::IngestTopView(fluxui::sketcher::SupplierInterface*, fluxui::ui::UI_Dialog*,
                             AppFrame::Commander* parentCommander)
    : AppFrame::Commander(parentCommander) {
    fluxmediabrowser::SetRequestMBPlayerOwnerSharedFxn(
        [this](fluxui::ui::UI_SubView& parent, const Mid::PlayerItem& item, bool ownsWindow,
               const fluxcore::geom::RectF& playerRect, const fluxcore::geom::RectF& clipRect) {
            Mid::PlayerOwnerRef player(new Mid::PlayerOwner(this, ownsWindow ? 1 : 0, !ownsWindow));
            player->Create(parent, playerRect);
            player->SetClipRect(clipRect);
            player->SetProjectItem(item);
            player->SetStartPosition(item.inPoint == fluxmediatypes::kTime_Invalid ? 0 : item.inPoint);
            return player;
        });
    AppFrame::Commander::SetTarget(this);
}

IngestTopView::~IngestTopView() {
    // The factory points at this view; a browser outliving it must not reach a dead commander.
    fluxmediabrowser::SetRequestMBPlayerOwnerSharedFxn({});
    if (browser_)
        Fnd::StationUtils::RemoveListener(browser_->GetStationID(), this);
}

void IngestTopView::CreateBrowser(Fnd::InterfaceRef<Proj::IProject> project) {
    fluxmediabrowser::MediaBrowserConfiguration configuration;
    if (HostApp::GetApplicationType() == kHostShowingBrowserAlone)
        configuration.standaloneApplication = true;
    if (HostApp::IsRunningSprint())
        configuration.lightEditor = true;
    browser_ = new fluxmediabrowser::MediaBrowserView(std::move(project), kCommandContext, configuration, true, true);
    Fnd::StationUtils::AddListener(browser_->GetStationID(), this);
    ChildPushBack(browser_);
    fluxmediabrowser::ReadFavoritesPref();
}

void IngestTopView::Gather(IIngestDialogData& session) { GatherCheckedItems(session, browser_.get()); }

const Fnd::StationID& IngestTopView::GetBrowserStation() const { return browser_->GetStationID(); }

void IngestTopView::UI_SizeChanged(const fluxcore::geom::RectF& localRect) {
    fluxui::ui::UI_SubView::UI_SizeChanged(localRect);
    if (!browser_)
        return;
    browser_->UI_SetLocalRectF(localRect);
    browser_->UI_Show(true);
}

bool IngestTopView::QueryCommand(const AppFrame::Command& command, AppFrame::CommandStatus& status) {
    if (!IsBrowserCommand(command.GetID()))
        return false;
    status.enabled = true;
    return true;
}

bool IngestTopView::ExecuteCommand(const AppFrame::Command& command) {
    const int id = command.GetID();
    if (!IsBrowserCommand(id))
        return false;
    if (!browser_)
        return true;
    fluxmediabrowser::MediaBrowserView& browser = *browser_;
    switch (id) {
    case 30205: browser.OnSelectDirectoryList(); break;
    case 30206: browser.OnSelectMediaView(); break;
    case 30207: browser.OnClearRecentDirectories(); break;
    case 30208: browser.OnCheckAllButtonClicked(nullptr); break;
    case 30209: browser.OnUnCheckAllButtonClicked(nullptr); break;
    case 30210: browser.OnSearch(); break;
    case 30211: browser.SetSelectedItemsCheck(); break;
    case 30212: browser.OnListViewButtonClicked(nullptr); break;
    case 30213: browser.OnIconViewButtonClicked(nullptr); break;
    case 30214: browser.OnEditColumns(); break;
    case kCommandSelectAll: browser.OnSelectAll(); break;
    case kCommandDeselectAll: browser.OnDeselectAll(); break;
    }
    return true;
}

} // namespace IGD
