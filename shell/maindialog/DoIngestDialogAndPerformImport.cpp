#include <algorithm>

#include "AppFrame/Commander.h"
#include "AppFrame/PlayerControl.h"
#include "AppFrame/Workspace.h"
#include "Fnd/StationUtils.h"
#include "IGD/IngestDialogApi.h"
#include "Mid/Project.h"
#include "Proj/PreferenceAccess.h"
#include "QL/IngestMessages.h"
#include "pipeline/plan/IngestPlan.h"
#include "shell/maindialog/IngestDialogKeys.h"
#include "shell/maindialog/IngestMainDialog.h"

namespace IGD {
namespace {

using fluxcore::geom::RectI;

constexpr int kSmallestWidth = 800;
constexpr int kSmallestHeight = 275;
constexpr double kShareOfMainWindow = 0.8;

// Whatever the dialog made the command target, the host's target is back when it ends.
class CommandTargetGuard {
public:
    CommandTargetGuard() : target_(AppFrame::Commander::GetTarget()) {}
    ~CommandTargetGuard() { AppFrame::Commander::ForceTargetSwitch(target_); }
    CommandTargetGuard(const CommandTargetGuard&) = delete;
    CommandTargetGuard& operator=(const CommandTargetGuard&) = delete;

private:
    AppFrame::Commander* target_;
};

// Four fifths of the main window, never smaller than the dialog's minimum on that display,
// centred on it; the place and size the person left last time win where they are stored.
RectI InitialDialogRect(const fluxui::ui::OS_Window* mainWindow, Proj::IPreferences& preferences) {
    const RectI main = mainWindow ? mainWindow->UI_GetGlobalStructureRect() : RectI{};
    const double scale = mainWindow ? mainWindow->GetViewScaleFactor() : 1.0;
    RectI rect;
    rect.width = static_cast<int>(std::max(scale * kSmallestWidth, kShareOfMainWindow * main.width));
    rect.height = static_cast<int>(std::max(scale * kSmallestHeight, kShareOfMainWindow * main.height));
    rect.left = main.left + main.width / 2 - rect.width / 2;
    rect.top = main.top + main.height / 2 - rect.height / 2;
    Proj::ReadPreference(preferences, kDialogLeftKey, rect.left);
    Proj::ReadPreference(preferences, kDialogTopKey, rect.top);
    Proj::ReadPreference(preferences, kDialogWidthKey, rect.width);
    Proj::ReadPreference(preferences, kDialogHeightKey, rect.height);
    return rect;
}

void StoreDialogRect(const RectI& rect) {
    const Fnd::InterfaceRef<Proj::IPreferences> preferences = Proj::GetPreferences();
    Proj::WritePreference(*preferences, kDialogLeftKey, rect.left);
    Proj::WritePreference(*preferences, kDialogTopKey, rect.top);
    Proj::WritePreference(*preferences, kDialogWidthKey, rect.width);
    Proj::WritePreference(*preferences, kDialogHeightKey, rect.height);
}

} // namespace

void DoIngestDialogAndPerformImport(const Fnd::WString& targetBin) {
    AppFrame::Workspace* workspace = AppFrame::Workspace::Instance();
    if (!workspace)
        return;
    AppFrame::PlayerControl::StopAllPlayers();
    const IngestDialogDataRef session = IngestDialogDataRef::Query(CreateIngestDialogData());
    const CommandTargetGuard targetGuard;

    fluxui::ui::OS_Window* mainWindow = workspace->GetPtr()->GetMainTopLevelWindow();
    const RectI rect = InitialDialogRect(mainWindow, *Proj::GetPreferences());
    int response = 0;
    {
        const boost::intrusive_ptr<IngestMainDialog> dialog(new IngestMainDialog(
            Mid::GetProject(), workspace->GetPtr()->GetDrawSupplier(), mainWindow, rect, session));
        response = dialog->RunModal();
        StoreDialogRect(dialog->UI_GetGlobalStructureRect());
    }
    if (response != fluxui::ui::kDialogResponseOK)
        return;
    const fluxcore::utility::Guid batch = fluxcore::utility::Guid::CreateUnique();
    RunIngestPlan(session, batch);
    Fnd::StationUtils::PostMessageToUIThread(QL::kStation_IngestMedia, QL::StartIngestMessage(batch, targetBin), false);
}

} // namespace IGD
