#include "IGD/TemplateSectionPreview.h"

#include <stdexcept>

#include "IGD/LayoutPreview.h"
#include "QL/IQLPresetManager.h"
#include "fluxui/controls/UI_ScrollView.h"
#include "templates/metadata/MetadataTemplateSection.h"
#include "templates/rename/RenameTemplateSection.h"
#include "transfer/SectionTree.h"

namespace IGD {
namespace {

using fluxui::controls::UI_ScrollView;

PresetRef FindShippedPreset(QL::_QLPresetCategory category, const Fnd::WString& name) {
    const auto manager = QL::InstantiateQLPresetManager(category);
    if (manager)
        for (const PresetRef& preset : manager->GetSystemPresets())
            if (preset->GetName(true) == name)
                return preset;
    throw std::runtime_error("no shipped preset \"" + Fnd::ToUTF8(name) + "\"");
}

} // namespace

fluxui::ui::UI_NodeRef BuildTemplateSectionPreview(TemplateSectionKind kind, TemplateSectionMode mode,
                                                   float width, float height) {
    // Settings of its own: what a preview chooses must not reach the user's next ingest.
    auto settings = std::make_shared<IngestSettingsController>();
    boost::intrusive_ptr<PresetManagementSection> section;
    if (kind == TemplateSectionKind::Rename) {
        settings->SetEnableRenameTemplate(true);
        settings->SetRenamePreset(FindShippedPreset(QL::kQLPresetCategoryRename, u"Camera roll"));
        section = new RenameTemplateSection(settings);
    } else {
        settings->SetEnableMetadataTemplate(true);
        settings->SetMetadataPreset(FindShippedPreset(QL::kQLPresetCategoryMetadata, u"Production"));
        section = new MetadataTemplateSection(settings);
    }

    const float inner = width - UI_ScrollView::kScrollBarSize;
    boost::intrusive_ptr<UI_ScrollView> scroll(new UI_ScrollView(0, section));
    scroll->UI_SetLocalRectF({0.0f, 0.0f, width, height});
    wrangler::ui::BuildSectionTree(*section, *IngestResourceManager(), nullptr);
    // Built, a section is as wide as its layout; the pane stretches it across the dialog.
    section->UI_SetLocalRectF({0.0f, 0.0f, inner, section->UI_GetLocalRectF().height});
    wrangler::ui::ApplySettingsToTree(*section);
    if (mode == TemplateSectionMode::Edit)
        section->EnterEditMode(false);
    // Raw: the function lives in the section, which the scroll view owns.
    UI_ScrollView* view = scroll.get();
    section->UI_InstallSizeChangedNotifyFunction([view](const fluxcore::geom::RectF&) { view->Update(); });
    view->Update();
    return scroll;
}

} // namespace IGD
