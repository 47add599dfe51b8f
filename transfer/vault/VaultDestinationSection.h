#pragma once
// The temporary local copy of a remote ingest: whether one is made, and the path and transcode
// options of that copy, which apply only while it is.
#include <memory>

#include "fluxui/controls/UI_Checkbox.h"
#include "settings/IngestSettingsController.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class PathSettingSection;
class TranscodeSettingSection;

class VaultDestinationSection : public wrangler::ui::SectionViewEx {
public:
    explicit VaultDestinationSection(std::shared_ptr<IngestSettingsController> settings);
    ~VaultDestinationSection() override;
    const char* UI_GetClassName() const override { return "VaultDestinationSection"; }

    fluxui::controls::UI_Checkbox& GetTempLocalCopyCheckbox() const { return *tempLocalCopyCheckbox_; }
    // Null until the children are created.
    PathSettingSection* GetPathSection() const { return pathSection_.get(); }
    TranscodeSettingSection* GetTranscodeSection() const { return transcodeSection_.get(); }

protected:
    void BindControls() override;
    void WireControls() override;
    void CreateChildSections() override;
    void LoadFromSettings() override;

private:
    void CopyToggled();

    std::shared_ptr<IngestSettingsController> settings_;
    boost::intrusive_ptr<fluxui::controls::UI_Checkbox> tempLocalCopyCheckbox_;
    boost::intrusive_ptr<PathSettingSection> pathSection_;
    boost::intrusive_ptr<TranscodeSettingSection> transcodeSection_;
};

} // namespace IGD
