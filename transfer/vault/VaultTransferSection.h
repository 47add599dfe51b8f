#pragma once
// The Transfer section of a project that lives on a collaboration server: where the media goes,
// which the user does not choose, and the optional temporary local copy below it.
#include <memory>

#include "fluxui/controls/UI_StaticText.h"
#include "settings/IngestSettingsController.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class VaultDestinationSection;

class VaultTransferSection : public wrangler::ui::SectionViewEx {
public:
    explicit VaultTransferSection(std::shared_ptr<IngestSettingsController> settings);
    ~VaultTransferSection() override;
    const char* UI_GetClassName() const override { return "VaultTransferSection"; }

    fluxui::controls::UI_StaticText& GetDestinationStaticText() const { return *destinationStaticText_; }
    // Null until the children are created.
    VaultDestinationSection* GetDestinationSection() const { return vaultDestinationSection_.get(); }

protected:
    void BindControls() override;
    void WireControls() override;
    void CreateChildSections() override;
    void LoadFromSettings() override;

private:
    std::shared_ptr<IngestSettingsController> settings_;
    boost::intrusive_ptr<fluxui::controls::UI_StaticText> destinationStaticText_;
    boost::intrusive_ptr<VaultDestinationSection> vaultDestinationSection_;
};

} // namespace IGD
