#pragma once
// The invisible root of the option sections: the summary, Transfer (local, hosted or remote),
// File Metadata and File Rename, top to bottom.
#include <memory>

#include "settings/IngestSettingsController.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class IngestSettingsSectionContainer : public wrangler::ui::SectionViewEx {
public:
    // The dialog and CreateIngestView pass the process's controller; a test its own.
    explicit IngestSettingsSectionContainer(
        std::shared_ptr<IngestSettingsController> settings = IngestSettingsController::GetInstance());
    const char* UI_GetClassName() const override { return "IngestSettingsSectionContainer"; }

protected:
    void CreateChildSections() override;

private:
    std::shared_ptr<IngestSettingsController> settings_;
};

} // namespace IGD
