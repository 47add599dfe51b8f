#pragma once
// Whether a destination's clips are transcoded on the way, to which format and with which preset;
// the primary's also offers to stitch them (ConcatenateSettingSection) and, while it transcodes,
// has no verification to offer.
#include <cstdint>
#include <memory>
#include <string>

#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_Popup.h"
#include "fluxui/controls/UI_StaticText.h"
#include "settings/IngestSettingsController.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class ConcatenateSettingSection;
class PrimaryDestinationSection;

class TranscodeSettingSection : public wrangler::ui::SectionViewEx {
public:
    TranscodeSettingSection(std::string layoutName, std::uint32_t destinationIndex,
                            std::shared_ptr<IngestSettingsController> settings);
    ~TranscodeSettingSection() override;
    const char* UI_GetClassName() const override { return "TranscodeSettingSection"; }

    std::uint32_t GetDestinationIndex() const { return destinationIndex_; }
    void SetDestinationIndex(std::uint32_t index) { destinationIndex_ = index; }

    // Null in a hosted application.
    fluxui::controls::UI_Checkbox* GetTranscodeCheckbox() const { return transcodeCheckbox_.get(); }
    fluxui::controls::UI_Popup& GetFormatPopup() const { return *formatPopup_; }
    fluxui::controls::UI_Popup& GetPresetPopup() const { return *presetPopup_; }
    fluxui::ui::UI_SubView& GetDetailSettingsView() const { return *detailSettingsView_; }
    // Null unless this is destination 0's section.
    ConcatenateSettingSection* GetConcatenateSection() const { return concatenateSection_.get(); }

protected:
    void BindControls() override;
    void WireControls() override;
    void CreateChildSections() override;
    void LoadFromSettings() override;

private:
    // Checked, or always on where there is no box.
    bool IsTranscodeChecked() const;
    void Store();
    void EnableDetails(bool on);
    void CoupleVerification();
    void TranscodeToggled();
    void FormatChanged();
    void PresetChanged();

    std::shared_ptr<IngestSettingsController> settings_;
    PrimaryDestinationSection* parentPrimarySection_ = nullptr;
    boost::intrusive_ptr<fluxui::ui::UI_SubView> detailSettingsView_;
    boost::intrusive_ptr<fluxui::controls::UI_Checkbox> transcodeCheckbox_;
    boost::intrusive_ptr<fluxui::controls::UI_StaticText> formatStaticText_;
    boost::intrusive_ptr<fluxui::controls::UI_StaticText> presetStaticText_;
    boost::intrusive_ptr<fluxui::controls::UI_Popup> formatPopup_;
    boost::intrusive_ptr<fluxui::controls::UI_Popup> presetPopup_;
    boost::intrusive_ptr<ConcatenateSettingSection> concatenateSection_;
    std::uint32_t destinationIndex_;
};

} // namespace IGD
