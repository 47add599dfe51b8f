#include "IGD/IngestSettingsApi.h"
#include "settings/IngestSettingsController.h"
#include "shell/resources/IngestResources.h"
#include "shell/settingspane/IngestSettingView.h"

namespace IGD {

IngestViewRef CreateIngestView(fluxworkspace::workspace::Workspace* workspace, const std::function<void()>& onChanged) {
    IngestResources::Create(workspace);
    const std::shared_ptr<IngestSettingsController> settings = IngestSettingsController::GetInstance();
    // A host shows the templates as the person last left them, never half-way through an edit.
    settings->SetMetadataEditMode(false);
    settings->SetRenameEditMode(false);
    settings->SetSettingsChangedCallback(onChanged);
    boost::intrusive_ptr<IngestSettingView> view(
        new IngestSettingView(workspace ? workspace->GetDrawSupplier() : nullptr, nullptr));
    view->Build(false);
    view->UI_Show(true);
    return view;
}

} // namespace IGD
