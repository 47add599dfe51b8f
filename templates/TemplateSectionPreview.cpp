#include "IGD/TemplateSectionPreview.h"

#include <stdexcept>

#include "QL/IQLPresetManager.h"
#include "templates/metadata/MetadataTemplateSection.h"
#include "templates/rename/RenameTemplateSection.h"
#include "transfer/SectionPreview.h"

namespace IGD {
namespace {


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

    return wrangler::ui::BuildSectionPreview(section, width, height, [&] {
        if (mode == TemplateSectionMode::Edit)
            section->EnterEditMode(false);
    });
}

} // namespace IGD
