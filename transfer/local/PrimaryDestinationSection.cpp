#include "transfer/local/PrimaryDestinationSection.h"

#include <stdexcept>

#include "transfer/local/TransferLayouts.h"
#include "transfer/path/PathSettingSection.h"
#include "transfer/transcode/TranscodeSettingSection.h"
#include "transfer/verify/VerifySettingSection.h"

namespace IGD {

PrimaryDestinationSection::PrimaryDestinationSection(std::string layoutName,
                                                     std::shared_ptr<IngestSettingsController> settings)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)), settings_(std::move(settings)) {
    if (!settings_)
        throw std::invalid_argument("PrimaryDestinationSection: no settings controller");
}

PrimaryDestinationSection::~PrimaryDestinationSection() = default;

void PrimaryDestinationSection::BindControls() {
    primaryStaticText_ = BindControl<fluxui::controls::UI_StaticText>("PrimaryDestinationStaticText");
}

void PrimaryDestinationSection::CreateChildSections() {
    const bool hosted = settings_->IsKilnHosted();
    pathSection_ = new PathSettingSection(TransferLayouts::For(hosted).path, 0, settings_);
    verifySection_ = new VerifySettingSection(settings_);
    InsertChildSection(pathSection_);
    // A host transcodes through its backup destination, never through the primary.
    if (!hosted) {
        transcodeSection_ = new TranscodeSettingSection("igdTranscodeSetting", 0, settings_);
        InsertChildSection(transcodeSection_);
    }
    InsertChildSection(verifySection_);
}

} // namespace IGD
