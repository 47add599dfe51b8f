#pragma once
// The Transfer section of a local project: whether the media is copied at all, the primary
// destination, any number of backups and, outside a hosted application, the button that adds one.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "fluxui/controls/UI_Checkbox.h"
#include "settings/IngestSettingsController.h"
#include "transfer/PowerSwitchSectionView.h"

namespace IGD {

class AddDestinationSection;
class BackupDestinationSection;
class PrimaryDestinationSection;

class LocalTransferSection : public wrangler::ui::PowerSwitchSectionView {
public:
    LocalTransferSection(const Fnd::WString& title, std::string layoutName,
                         std::shared_ptr<IngestSettingsController> settings);
    ~LocalTransferSection() override;
    const char* UI_GetClassName() const override { return "LocalTransferSection"; }

    // Asks for a folder and adds an enabled backup going there; a cancelled chooser changes nothing.
    void AddBackup();
    // Drops the backup at index (1 for the first) and renumbers those below it, without asking.
    void RemoveBackup(BackupDestinationSection* section, std::uint32_t index);

    fluxui::controls::UI_Checkbox& GetTransferClipsCheckbox() const { return *transferClipsCheckbox_; }
    PrimaryDestinationSection& GetPrimarySection() const { return *primarySection_; }
    // Position p holds destination p + 1.
    const std::vector<boost::intrusive_ptr<BackupDestinationSection>>& GetBackupSections() const {
        return backupSections_;
    }
    // Null in a hosted application.
    AddDestinationSection* GetAddDestinationSection() const { return addDestinationSection_.get(); }

protected:
    void BindControls() override;
    void WireControls() override;
    void CreateChildSections() override;
    void LoadFromSettings() override;

private:
    void SetTransfer(bool on);
    void InsertBackup(const boost::intrusive_ptr<BackupDestinationSection>& section);
    void ScrollAddButtonIntoView();

    std::shared_ptr<IngestSettingsController> settings_;
    boost::intrusive_ptr<fluxui::controls::UI_Checkbox> transferClipsCheckbox_;
    boost::intrusive_ptr<PrimaryDestinationSection> primarySection_;
    std::vector<boost::intrusive_ptr<BackupDestinationSection>> backupSections_;
    boost::intrusive_ptr<AddDestinationSection> addDestinationSection_;
};

} // namespace IGD
