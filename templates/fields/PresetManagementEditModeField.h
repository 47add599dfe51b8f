#pragma once
// A row of edit mode: the user changes the field itself, moves the row or removes it.
#include <functional>
#include <string>

#include "fluxui/controls/UI_PictureButton.h"
#include "templates/PresetFieldRef.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class PresetManagementSection;

class PresetManagementEditModeField : public wrangler::ui::SectionViewEx {
public:
    PresetManagementEditModeField(std::string layoutName, PresetFieldRef field);
    const char* UI_GetClassName() const override { return "PresetManagementEditModeField"; }

    // A field of the working copy, never of the preset itself.
    const PresetFieldRef& GetField() const { return field_; }
    virtual void TakeFocus() = 0;
    // The row's field changed, moved or went away.
    virtual void FieldChanged() {}

    void SetAfterMove(std::function<void()> afterMove) { afterMove_ = std::move(afterMove); }
    void MoveUp();
    void MoveDown();
    // Hides the row, tells of the change and leaves the container; the arrows of the rows left
    // are refreshed once this handler has ended.
    void Remove();

    fluxui::controls::UI_PictureButton& GetMoveUpButton() const { return *moveUpButton_; }
    fluxui::controls::UI_PictureButton& GetMoveDownButton() const { return *moveDownButton_; }
    fluxui::controls::UI_PictureButton& GetRemoveButton() const { return *removeButton_; }

protected:
    // A subclass that overrides these calls them first.
    void BindControls() override;
    void WireControls() override;
    fluxui::ui::UI_NodeRef CreateCustomControl(const Fnd::WString& className) override;
    PresetManagementSection* OwnerSection() const;

private:
    void Moved();

    PresetFieldRef field_;
    boost::intrusive_ptr<fluxui::controls::UI_PictureButton> moveUpButton_;
    boost::intrusive_ptr<fluxui::controls::UI_PictureButton> moveDownButton_;
    boost::intrusive_ptr<fluxui::controls::UI_PictureButton> removeButton_;
    std::function<void()> afterMove_;
};

using PresetManagementEditModeFieldRef = boost::intrusive_ptr<PresetManagementEditModeField>;

} // namespace IGD
