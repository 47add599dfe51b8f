#include "IGD/SettingsPanePreview.h"

#include "Fnd/IgdHome.h"
#include "Fnd/PathUtils.h"
#include "fluxui/ui/UI_Dialog.h"
#include "shell/resources/IngestResources.h"
#include "shell/settingspane/IngestSettingView.h"

namespace IGD {
namespace {

void OpenAll(wrangler::ui::SectionViewEx& section) {
    // Innermost first: each opening restacks its parent, which is then measured with its children open.
    for (const wrangler::ui::SectionViewExRef& child : section.GetChildSections())
        OpenAll(*child);
    section.SetOpened(true);
}

} // namespace

SettingsPanePreview BuildSettingsPanePreview(float width, float height) {
    IngestResources::Create(nullptr);
    const std::shared_ptr<IngestSettingsController> settings = IngestSettingsController::GetInstance();
    settings->LoadSettings();
    settings->SetImportOnly(false);
    settings->SetVaultTempLocalCopy(true);
    settings->SetEnableMetadataTemplate(true);
    settings->SetEnableRenameTemplate(true);
    DestinationSetting& primary = settings->GetDestinationSetting(0);
    if (primary.pathsMRU.empty())
        primary.AddPathToMRU(Fnd::PathUtils::CombinePaths(Fnd::FromUTF8(Fnd::IgdHomeDirectory()), u"Shuttle A"));

    boost::intrusive_ptr<fluxui::ui::UI_Dialog> dialog(new fluxui::ui::UI_Dialog(nullptr, u"Ingest"));
    boost::intrusive_ptr<IngestSettingView> pane(new IngestSettingView(IngestResources::GetDrawSupplier(), dialog.get()));
    pane->Build(true);
    OpenAll(*pane->GetContainerView()->GetSectionContainer());
    pane->UI_SetLocalRectF({0.0f, 0.0f, width, height});
    return {pane, dialog};
}

} // namespace IGD
