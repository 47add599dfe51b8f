#pragma once
// The "File Metadata" section: metadata presets, whose values the user types for each ingest.
#include <memory>

#include "templates/section/PresetManagementSection.h"

namespace IGD {

class MetadataTemplateSection : public PresetManagementSection {
public:
    explicit MetadataTemplateSection(std::shared_ptr<IngestSettingsController> settings);
    const char* UI_GetClassName() const override { return "MetadataTemplateSection"; }

    void SetEditMode(bool editing) override;
    void StoreEnabled(bool enabled) override;
    bool ValidatePresetName(const Fnd::WString& name) override;

protected:
    void BindControls() override;
    void WireControls() override;
    void CreateChildSections() override;
    void LoadFromSettings() override;
};

} // namespace IGD
