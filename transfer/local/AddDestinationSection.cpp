#include "transfer/local/AddDestinationSection.h"

#include "transfer/local/LocalTransferSection.h"

namespace IGD {

AddDestinationSection::AddDestinationSection(std::string layoutName)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)) {}

void AddDestinationSection::BindControls() {
    parentTransferSection_ = dynamic_cast<LocalTransferSection*>(GetParentSection());
    addButton_ = BindControl<fluxui::controls::UI_TextButton>("AddDestinationTextButton");
}

void AddDestinationSection::WireControls() {
    addButton_->NotifyWhenChangedInteractively([this](const fluxui::controls::UI_ControlMessage&) {
        if (!parentTransferSection_)
            return;
        parentTransferSection_->AddBackup();
        // The chooser took the focus; the button gets it back for the next addition.
        addButton_->UI_LoseKeyboardFocus();
        addButton_->UI_GainKeyboardFocus();
    });
}

} // namespace IGD
