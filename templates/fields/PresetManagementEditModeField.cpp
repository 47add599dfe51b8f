#include "templates/fields/PresetManagementEditModeField.h"

#include "fluxcore/Threads.h"
#include "templates/fields/FieldRowControls.h"
#include "templates/section/OwningPresetSection.h"

namespace IGD {
namespace {

constexpr int kRemoveDecal = 7;
constexpr int kMoveUpDecal = 8;
constexpr int kMoveDownDecal = 9;

} // namespace

PresetManagementEditModeField::PresetManagementEditModeField(std::string layoutName, PresetFieldRef field)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)), field_(std::move(field)) {}

fluxui::ui::UI_NodeRef PresetManagementEditModeField::CreateCustomControl(const Fnd::WString& className) {
    return CreateFieldRowControl(className);
}

PresetManagementSection* PresetManagementEditModeField::OwnerSection() const {
    return OwningPresetSection(*this);
}

void PresetManagementEditModeField::BindControls() {
    SectionViewEx::BindControls();
    moveUpButton_ = BindPictureButton(*this, "UI_MoveUpwardButton", kMoveUpDecal,
                                      "$$$/Quillon/Libraries/IngestDialog/MoveUpButtonTooltip=Move Field Up");
    moveDownButton_ = BindPictureButton(*this, "UI_MoveDownwardButton", kMoveDownDecal,
                                        "$$$/Quillon/Libraries/IngestDialog/MoveDownButtonTooltip=Move Field Down");
    removeButton_ = BindPictureButton(*this, "UI_RemoveButton", kRemoveDecal,
                                      "$$$/Quillon/Libraries/IngestDialog/RemoveButtonTooltip=Remove");
}

void PresetManagementEditModeField::WireControls() {
    SectionViewEx::WireControls();
    using fluxui::controls::UI_ControlMessage;
    moveUpButton_->NotifyWhenChanged([this](const UI_ControlMessage&) { MoveUp(); });
    moveDownButton_->NotifyWhenChanged([this](const UI_ControlMessage&) { MoveDown(); });
    removeButton_->NotifyWhenChanged([this](const UI_ControlMessage&) { Remove(); });
}

void PresetManagementEditModeField::MoveUp() {
    if (SectionViewEx* parent = GetParentSection())
        parent->MoveChildSectionUp(this);
    Moved();
}

void PresetManagementEditModeField::MoveDown() {
    if (SectionViewEx* parent = GetParentSection())
        parent->MoveChildSectionDown(this);
    Moved();
}

void PresetManagementEditModeField::Moved() {
    if (afterMove_)
        afterMove_();
    FieldChanged();
}

void PresetManagementEditModeField::Remove() {
    // The row is still a child while this handler runs: the arrows of the rows that stay are set
    // once it is gone.
    SectionViewEx* parent = GetParentSection();
    if (afterMove_) {
        // The queued refresh keeps the container alive until it has run.
        fluxcore::threads::AsyncCallFromMainThread(
            [container = wrangler::ui::SectionViewExRef(parent), refresh = afterMove_] { refresh(); });
    }
    UI_Show(false);
    FieldChanged();
    // This handler runs inside the row: it must outlive its own removal.
    const boost::intrusive_ptr<PresetManagementEditModeField> keepAlive(this);
    if (parent)
        parent->RemoveChildSection(this, false);
}

} // namespace IGD
