#pragma once
// The button under the backups that adds one more.
#include <string>

#include "fluxui/controls/UI_TextButton.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class LocalTransferSection;

class AddDestinationSection : public wrangler::ui::SectionViewEx {
public:
    explicit AddDestinationSection(std::string layoutName = "igdAddDestination");
    const char* UI_GetClassName() const override { return "AddDestinationSection"; }

    fluxui::controls::UI_TextButton& GetAddButton() const { return *addButton_; }

protected:
    void BindControls() override;
    void WireControls() override;

private:
    // Not owned: the parent owns this section. Null outside a transfer section, where a click does nothing.
    LocalTransferSection* parentTransferSection_ = nullptr;
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> addButton_;
};

} // namespace IGD
