#include "shell/maindialog/IngestMainDialog.h"

#include <atomic>

#include "AppFrame/DocumentManager.h"
#include "AppFrame/ShortcutManager.h"
#include "AppFrame/Workspace.h"
#include "Fnd/NullInterfaceException.h"
#include "Fnd/StationUtils.h"
#include "IGD/MinimumMetadataApi.h"
#include "Proj/PreferenceAccess.h"
#include "QL/IngestMessages.h"
#include "QL/SRProject.h"
#include "fluxcore/ApplicationName.h"
#include "fluxcore/ZString.h"
#include "fluxcore/geom/Matrix.h"
#include "fluxmediabrowser/FavoritesPref.h"
#include "fluxmediabrowser/MediaBrowserCheckStatusChanged.h"
#include "fluxui/Messagebox.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "pipeline/entry/AdvanceRenameCounter.h"
#include "pipeline/entry/IngestFailure.h"
#include "pipeline/entry/IngestRequest.h"
#include "settings/IngestSettingsController.h"
#include "shell/maindialog/IngestDialogKeys.h"
#include "shell/mediapane/ImportMedia.h"
#include "shell/resources/IngestResources.h"

namespace IGD {
namespace {

using fluxcore::Localize;
using fluxcore::geom::RectF;

constexpr int kErrorIcon = 16;
constexpr float kDefaultSplit = 0.68f;
constexpr float kLowestSplit = 0.15f;
constexpr float kHighestSplit = 0.85f;
constexpr float kDividerWidth = 6.0f;
constexpr int kMinimumWidth = 800;
constexpr int kMinimumHeight = 275;
constexpr const char* kCommandContext = "ingestdialog";

std::atomic<std::uintptr_t> g_lastPlatformWindow{0};

// The splitter counts in percent; the preference keeps the share as a fraction.
float ToPercent(float fraction) { return fraction * 100.0f; }
float ToFraction(float percent) { return percent / 100.0f; }

// A pane too narrow to use cannot be dragged to.
float ValidateSplit(float percent) {
    if (percent >= ToPercent(kHighestSplit))
        return ToPercent(kHighestSplit);
    if (percent <= ToPercent(kLowestSplit))
        return ToPercent(kLowestSplit);
    return percent;
}

fluxcore::geom::PointF ScaleOf(const fluxui::ui::OS_Window* parent) {
    const float scale = parent ? parent->GetViewScaleFactor() : 1.0f;
    return {scale, scale};
}

} // namespace

IngestMainDialog::IngestMainDialog(Fnd::InterfaceRef<Proj::IProject> project,
                                   fluxui::sketcher::SupplierInterface* supplier, fluxui::ui::OS_Window* parent,
                                   const fluxcore::geom::RectI& globalRect, IngestDialogDataRef session)
    : UI_Dialog(supplier, Localize("$$$/Quillon/Libraries/IngestDialog/IngestDialogCaption=Ingest"), ScaleOf(parent),
                parent),
      project_(std::move(project)), session_(std::move(session)) {
    if (!session_)
        throw Fnd::NullInterfaceException();
    // The host's player must not start on its own while the person previews clips here; the
    // person's own choice comes back when the dialog goes.
    {
        const Fnd::InterfaceRef<Proj::IPreferences> preferences = Proj::GetPreferences();
        bool autoPlay = false;
        Proj::ReadPreference(*preferences, kHostAutoPlayKey, autoPlay);
        savedPreferenceFlag_ = autoPlay ? 1 : 0;
        if (!preferences->IsReadOnly(kHostAutoPlayKey))
            preferences->SetValue(kHostAutoPlayKey, Proj::SerializeableValue<bool>(false), false);
    }
    AppFrame::Workspace* workspace = AppFrame::Workspace::Instance();
    IngestResources::Create(workspace ? workspace->GetPtr() : nullptr);
    g_lastPlatformWindow = GetPlatformWindow();
    Fnd::StationUtils::AddListener(QL::kStation_IngestMedia, this);
    targetBinRequestOne_ = fluxcore::utility::Guid::CreateUnique();
    targetBinRequestTwo_ = fluxcore::utility::Guid::CreateUnique();
    QL::SRProject::GetInstance()->GetIngestLibraryNotifier()->RequestTargetBin(targetBinRequestOne_,
                                                                              targetBinRequestTwo_);
    if (AppFrame::DocumentManager* documents = AppFrame::DocumentManager::Instance())
        projectPath_ = documents->GetCurrentDocumentPath();
    BuildContent();
    UI_SetGlobalStructureRect(globalRect);
}

void IngestMainDialog::BuildContent() {
    IngestSettingsController::GetInstance()->LoadSettings();

    topView_ = new IngestTopView(UI_GetDrawSupplier(), this, nullptr);
    topView_->UI_SetNodeID(kTopViewID);
    topView_->CreateBrowser(project_);
    topView_->UI_Show(true);

    settingView_ = new IngestSettingView(UI_GetDrawSupplier(), this);
    settingView_->UI_SetNodeID(kSettingViewID);
    settingView_->Build(true);
    settingView_->UI_Show(true);
    // The bar's Cancel only names itself; closing, with its question, is the dialog's.
    settingView_->GetControlView()->GetCancelButton()->NotifyWhenChanged(
        [this](const fluxui::controls::UI_ControlMessage&) { DefaultCloseCancel(); });

    splitter_ = new IngestSplitter(fluxui::controls::SplitDirection::Horizontal, ToPercent(kDefaultSplit),
                                   kDividerWidth);
    splitter_->UI_SetNodeID(kSplitterID);
    splitter_->UI_Show(true);
    ChildPushBack(splitter_);
    splitter_->UI_SetLayoutsChildren(true);
    splitter_->UI_SetLayoutBinding(fluxui::ui::kBindAll);
    splitter_->SetSplitValidationFunction(ValidateSplit);
    splitter_->SetTopLeftView(topView_);
    splitter_->SetBottomRightView(settingView_);

    float split = kDefaultSplit;
    Proj::ReadPreference(*Proj::GetPreferences(), kSplitterPercentKey, split);
    splitter_->SetSplitPercentage(ToPercent(split));

    Fnd::StationUtils::AddListener(settingView_->GetStation(), this);
    Fnd::StationUtils::AddListener(topView_->GetBrowserStation(), this);

    AppFrame::ShortcutManager& shortcuts = AppFrame::ShortcutManager::Instance();
    shortcuts.BuildContexts();
    shortcuts.ApplyContext(fluxcore::utility::ImmutableString(kCommandContext), false);
    SetMinimumSize({kMinimumWidth, kMinimumHeight});
}

IngestMainDialog::~IngestMainDialog() {
    const Fnd::InterfaceRef<Proj::IPreferences> preferences = Proj::GetPreferences();
    if (splitter_)
        Proj::WritePreference(*preferences, kSplitterPercentKey, ToFraction(splitter_->GetSplitPercentage()));
    if (settingView_)
        Fnd::StationUtils::RemoveListener(settingView_->GetStation(), this);
    if (topView_ && topView_->GetBrowser())
        Fnd::StationUtils::RemoveListener(topView_->GetBrowserStation(), this);
    IngestResources::Release();
    Fnd::StationUtils::RemoveListener(QL::kStation_IngestMedia, this);
    fluxmediabrowser::WriteFavoritesPref();
    // The host's keys must not reach this dialog's commands once it is gone.
    AppFrame::ShortcutManager::Instance().UnapplyContext(fluxcore::utility::ImmutableString(kCommandContext));
    metadataDialog_.reset();
    if (!preferences->IsReadOnly(kHostAutoPlayKey))
        preferences->SetValue(kHostAutoPlayKey, Proj::SerializeableValue<bool>(savedPreferenceFlag_ != 0), false);
    session_ = IngestDialogDataRef();
    splitter_.reset();
    settingView_.reset();
    topView_.reset();
}

std::uintptr_t IngestMainDialog::GetPlatformWindowOfLastDialog() {
    return g_lastPlatformWindow;
}

void IngestMainDialog::ListenToMessage(const Fnd::StationID& station, const Fnd::Message& message) {
    if (Fnd::MessageCast<ImportMedia>(message)) {
        OnImportMedia();
    } else if (const auto* finished = Fnd::MessageCast<QL::MiniMetadataFinishedMessage>(message)) {
        OnMinimumMetadataFinished(finished->success, finished->result);
    } else if (const auto* bin = Fnd::MessageCast<QL::UpdateTargetBinMessage>(message)) {
        if (bin->requestOne == targetBinRequestOne_ && bin->requestTwo == targetBinRequestTwo_)
            SetTitle(Localize("$$$/Quillon/Libraries/IngestDialog/TitleWithTargetBin=Ingest - Target Bin: @0",
                              {bin->binName}));
    } else if (const auto* status = Fnd::MessageCast<fluxmediabrowser::MediaBrowserCheckStatusChanged>(message)) {
        if (settingView_ && topView_)
            settingView_->SetIngestEnabled(status->GetCheckStatus());
    }
}

void IngestMainDialog::OnImportMedia() {
    AppFrame::DocumentManager* documents = AppFrame::DocumentManager::Instance();
    if (documents && documents->GetCurrentDocumentPath() != projectPath_) {
        ShowIngestFailure(Localize("$$$/Quillon/Libraries/IngestDialog/IngestProjectPathChangedError=The target "
                                   "Project/Production has changed. Please re-open the ingest dialog and try again."));
        return;
    }
    session_->Reset();
    const std::shared_ptr<IngestSettingsController> settings = IngestSettingsController::GetInstance();
    settings->ApplyToDialogData(*session_);
    topView_->Gather(*session_);
    if (!CheckIngestRequest(*session_, this, Fnd::Date::Now(), 1, settings->GetUserDefAutoIncStartNumber()))
        return;
    metadataDialog_ = DoMinimumMetadataDialog(FullItemPaths(*session_));
    // The button must not start a second ingest while the panel asks for the first one's metadata.
    if (metadataDialog_)
        UI_SetDisabled(true);
}

void IngestMainDialog::OnMinimumMetadataFinished(bool success, const QL::MinimumMetadataResult& result) {
    if (metadataDialog_) {
        UI_SetDisabled(false);
        metadataDialog_.reset();
    }
    if (!success)
        return;
    if (!CompleteIngestRequest(*session_, result))
        return;
    ingestResult_ = session_->IsImportOnly() ? 1 : 2;
    AdvanceRenameCounter(*session_);
    IngestSettingsController::GetInstance()->SaveSettings();
    SetResponse(fluxui::ui::kDialogResponseOK);
    PostClose();
}

void IngestMainDialog::DefaultCloseCancel() {
    const std::shared_ptr<IngestSettingsController> settings = IngestSettingsController::GetInstance();
    const bool editing = (settings->GetEnableRenameTemplate() && settings->GetRenameEditMode()) ||
                         (settings->GetEnableMetadataTemplate() && settings->GetMetadataEditMode());
    if (editing &&
        AppFrame::MessageBoxW(Localize("$$$/Quillon/Ingest/Failure/RenameOrMetadataEditModeErrorMessage=Metadata or "
                                       "rename preset is in editing mode, would you like to cancel?"),
                              fluxcore::config::GetApplicationName(), AppFrame::kMessageBoxYesNo, kErrorIcon,
                              AppFrame::kResultNo) != AppFrame::kResultYes)
        return;
    UI_Dialog::DefaultCloseCancel();
}

bool IngestMainDialog::UI_DoKeyboardEvent(fluxui::ui::UI_Node* target, const fluxui::ui::KeyboardEvent& event) {
    if (UI_Dialog::UI_DoKeyboardEvent(target, event))
        return true;
    // Keys typed into a text field are text, not shortcuts.
    for (fluxui::ui::UI_Node* node = target ? target->UI_GetParentNode() : nullptr; node;
         node = node->UI_GetParentNode())
        if (dynamic_cast<fluxui::controls::UI_TextEdit*>(node))
            return false;
    return AppFrame::ShortcutManager::Instance().DispatchKeyboardEvent(event, false);
}

void IngestMainDialog::UI_SizeChanged(const RectF& localRect) {
    UI_Dialog::UI_SizeChanged(localRect);
    if (!splitter_)
        return;
    splitter_->UI_SetLocalRectF(UI_GetContentMatrix().Inverted().Map(localRect));
}

} // namespace IGD
