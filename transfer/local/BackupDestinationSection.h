#pragma once
// One backup destination: whether it takes part, where it goes and whether it transcodes. The
// caption counts the backups from 01; removing one above renumbers it.
#include <cstdint>
#include <memory>
#include <string>

#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_PictureButton.h"
#include "settings/IngestSettingsController.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class PathSettingSection;
class TranscodeSettingSection;

class BackupDestinationSection : public wrangler::ui::SectionViewEx {
public:
    BackupDestinationSection(std::string layoutName, std::uint32_t destinationIndex,
                             std::shared_ptr<IngestSettingsController> settings);
    ~BackupDestinationSection() override;
    const char* UI_GetClassName() const override { return "BackupDestinationSection"; }

    std::uint32_t GetDestinationIndex() const { return destinationIndex_; }
    // The section now stands for the destination at index: its children and its caption follow.
    void SetDestinationIndex(std::uint32_t index);

    fluxui::controls::UI_Checkbox& GetBackupCheckbox() const { return *backupCheckbox_; }
    // Null in a hosted application, which cannot remove what the host gave.
    fluxui::controls::UI_PictureButton* GetRemoveButton() const { return removeButton_.get(); }
    PathSettingSection& GetPathSection() const { return *pathSection_; }
    TranscodeSettingSection& GetTranscodeSection() const { return *transcodeSection_; }

protected:
    void BindControls() override;
    void WireControls() override;
    void CreateChildSections() override;
    void LoadFromSettings() override;

private:
    void RefreshCaption();

    std::shared_ptr<IngestSettingsController> settings_;
    boost::intrusive_ptr<fluxui::controls::UI_Checkbox> backupCheckbox_;
    boost::intrusive_ptr<fluxui::controls::UI_PictureButton> removeButton_;
    boost::intrusive_ptr<PathSettingSection> pathSection_;
    boost::intrusive_ptr<TranscodeSettingSection> transcodeSection_;
    std::uint32_t destinationIndex_;
};

} // namespace IGD
