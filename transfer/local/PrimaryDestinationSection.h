#pragma once
// The primary destination: its path, its transcode options (not in a hosted application) and the
// verification of the whole ingest.
#include <memory>
#include <string>

#include "fluxui/controls/UI_StaticText.h"
#include "settings/IngestSettingsController.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class PathSettingSection;
class TranscodeSettingSection;
class VerifySettingSection;

class PrimaryDestinationSection : public wrangler::ui::SectionViewEx {
public:
    PrimaryDestinationSection(std::string layoutName, std::shared_ptr<IngestSettingsController> settings);
    ~PrimaryDestinationSection() override;
    const char* UI_GetClassName() const override { return "PrimaryDestinationSection"; }

    PathSettingSection& GetPathSection() const { return *pathSection_; }
    // Null in a hosted application.
    TranscodeSettingSection* GetTranscodeSection() const { return transcodeSection_.get(); }
    VerifySettingSection& GetVerifySection() const { return *verifySection_; }

protected:
    void BindControls() override;
    void CreateChildSections() override;

private:
    std::shared_ptr<IngestSettingsController> settings_;
    boost::intrusive_ptr<fluxui::controls::UI_StaticText> primaryStaticText_;
    boost::intrusive_ptr<PathSettingSection> pathSection_;
    boost::intrusive_ptr<TranscodeSettingSection> transcodeSection_;
    boost::intrusive_ptr<VerifySettingSection> verifySection_;
};

} // namespace IGD
