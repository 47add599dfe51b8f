#include <string>

#include "AppFrame/Workspace.h"
#include "IGD/MinimumMetadataApi.h"
#include "PanelkitManager/PanelkitManager.h"
#include "Plug/SDKErrors.h"
#include "Proj/PreferenceAccess.h"
#include "QL/SRProject.h"
#include "fluxcore/Guid.h"
#include "panels/MinimumMetadataDialog.h"
#include "panels/MinimumMetadataFinished.h"
#include "panels/ShowMinimumMetadataPanel.h"
#include "settings/SettingKeys.h"

namespace IGD {
namespace {

bool IsPanelEnabled() {
    // A value that cannot be read keeps the default: a site that asks for metadata gets it.
    bool enabled = kMinimumMetadataDialogEnable.defaultValue;
    ReadPreference(*Proj::GetPreferences(), kMinimumMetadataDialogEnable, enabled);
    return enabled;
}

// The first extension whose id holds the minimum-metadata id, with its stage readied.
PanelkitManager::IExtensionRef FindMinimumMetadataExtension() {
    const std::string wanted = Fnd::ToUTF8(PanelkitManager::GetMinimumMetadataIDStr());
    const std::size_t count = PanelkitManager::GetNumExtensions();
    for (std::size_t index = 0; index < count; ++index) {
        PanelkitManager::IExtensionRef extension = PanelkitManager::GetExtensionByIndex(index);
        if (!extension || extension->GetExtensionID().find(wanted) == std::string::npos)
            continue;
        if (!extension->IsStagePrepared())
            extension->PrepareStage(false);
        return extension;
    }
    return nullptr;
}

// The panel learns which files it describes from the project library's announcement.
void AnnounceFiles(const std::vector<Fnd::WString>& filePaths) {
    std::vector<QL::IngestItem> items;
    items.reserve(filePaths.size());
    for (const Fnd::WString& path : filePaths) {
        QL::IngestItem item;
        item.path = path;
        items.push_back(std::move(item));
    }
    QL::SRProject::GetInstance()->GetIngestLibraryNotifier()->AnnounceIngestItems(
        items, fluxcore::utility::Guid::CreateUnique(), fluxcore::utility::Guid::CreateUnique());
}

} // namespace

boost::intrusive_ptr<fluxui::ui::UI_Dialog> DoMinimumMetadataDialog(const std::vector<Fnd::WString>& filePaths) {
    if (!IsPanelEnabled()) {
        PostMinimumMetadataFinished(true, {});
        return {};
    }
    return ShowMinimumMetadataPanel(filePaths);
}

boost::intrusive_ptr<fluxui::ui::UI_Dialog> ShowMinimumMetadataPanel(const std::vector<Fnd::WString>& filePaths) {
    PanelkitManager::IExtensionRef extension = FindMinimumMetadataExtension();
    if (!extension) {
        PostMinimumMetadataFinished(true, {});
        return {};
    }

    Fnd::WString title = Fnd::FromUTF8(extension->GetExtensionID());
    const bool modeless = extension->IsModeless();
    if (!modeless) {
        const PanelkitManager::IStageRef stage = PanelkitManager::GetStage(extension->GetStageID());
        if (!stage) {
            // The batch goes on without metadata; the failure is the host's to log, not a refusal.
            Plug::SDKErrors::SetSDKErrorString(
                "$$$/Quillon/MinimumMetadataDlg/ExtensionLoadError=Fail to load minimum metadata panel.", {});
            PostMinimumMetadataFinished(true, {});
            return {};
        }
        title = stage->GetTitle();
    }

    fluxui::ui::OS_Window* parent = nullptr;
    fluxui::sketcher::SupplierInterface* supplier = nullptr;
    if (AppFrame::Workspace* workspace = AppFrame::Workspace::Instance(); workspace && workspace->GetPtr()) {
        parent = workspace->GetPtr()->GetMainTopLevelWindow();
        supplier = workspace->GetPtr()->GetDrawSupplier();
    }
    const std::int32_t stageID = extension->GetStageID();
    boost::intrusive_ptr<MinimumMetadataDialog> dialog(
        new MinimumMetadataDialog(stageID, std::move(title), supplier, parent, filePaths, extension));
    AnnounceFiles(filePaths);
    if (modeless)
        return dialog;
    dialog->RunModal();
    return {};
}

} // namespace IGD
