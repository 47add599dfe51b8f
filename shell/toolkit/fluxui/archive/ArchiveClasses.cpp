#include "fluxui/archive/ArchiveClasses.h"

#include <array>

#include "fluxui/archive/ArchiveValues.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_Divider.h"
#include "fluxui/controls/UI_NumberEdit.h"
#include "fluxui/controls/UI_OutlineBox.h"
#include "fluxui/controls/UI_PictureButton.h"
#include "fluxui/controls/UI_PicturePopup.h"
#include "fluxui/controls/UI_Popup.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "fluxui/ui/UI_LayoutView.h"

namespace fluxui::archive {

namespace {

using Sections = std::span<const Property* const>;

template <typename T> ui::UI_NodeRef Make(Sections) {
    return ui::UI_NodeRef(new T());
}

ui::UI_NodeRef MakeLayoutView(Sections sections) {
    // The direction is fixed at construction, so it is read before the other properties.
    const Property* horizontal = sections[1]->Find("AutoLayout_Horizontal");
    if (horizontal)
        ExpectType(*horizontal, PropertyType::Bool, "AutoLayout_Horizontal");
    const bool isHorizontal = horizontal && horizontal->boolean;
    return ui::UI_NodeRef(new ui::UI_LayoutView(isHorizontal ? ui::LayoutDirection::Horizontal
                                                             : ui::LayoutDirection::Vertical));
}

ui::UI_NodeRef MakePopup(Sections sections) {
    auto type = controls::PopupType::Standard;
    if (const Property* popupType = sections[0]->Find("popupType"))
        type = static_cast<controls::PopupType>(EnumValue(*popupType, 2, "popupType"));
    return ui::UI_NodeRef(new controls::UI_Popup(type));
}

// The single-line text edit of the archives is the toolkit's text edit without flags.
ui::UI_NodeRef MakeSingleLineTextEdit(Sections) {
    return ui::UI_NodeRef(new controls::UI_TextEdit(0, controls::TextAlignment::Default));
}

constexpr std::string_view kNode = "UI_Node";
constexpr std::string_view kSubView = "UI_SubView";
constexpr std::string_view kControl = "UI_ControlView";
constexpr std::string_view kInteractive = "UI_InteractiveControlView";
constexpr std::string_view kButton = "UI_Button";
constexpr std::string_view kTextEdit = "UI_TextEdit";

ArchiveClass Control(std::string_view adapter, std::string_view name, ui::UI_NodeRef (*create)(Sections)) {
    return {adapter, name, {name, kControl, kSubView, kNode}, create};
}
ArchiveClass Button(std::string_view adapter, std::string_view name, ui::UI_NodeRef (*create)(Sections)) {
    return {adapter, name, {name, kButton, kInteractive, kControl, kSubView, kNode}, create};
}
ArchiveClass Edit(std::string_view adapter, std::string_view name, ui::UI_NodeRef (*create)(Sections)) {
    return {adapter, name, {name, kTextEdit, kInteractive, kControl, kSubView, kNode}, create};
}

const std::vector<ArchiveClass>& Classes() {
    static const std::vector<ArchiveClass> classes{
        {"fluxui::ui::UI_LayoutView", "UI_LayoutView", {"UI_LayoutView", kSubView, kNode}, MakeLayoutView},
        {"fluxui::ui::UI_SubView", "UI_SubView", {kSubView, kNode}, Make<ui::UI_SubView>},
        Control("fluxui::controls::UI_StaticText", "UI_StaticText", Make<controls::UI_StaticText>),
        Control("fluxui::controls::UI_Divider", "UI_Divider", Make<controls::UI_Divider>),
        Control("fluxui::controls::UI_OutlineBox", "UI_OutlineBox", Make<controls::UI_OutlineBox>),
        Button("fluxui::controls::UI_Checkbox", "UI_Checkbox", Make<controls::UI_Checkbox>),
        Button("fluxui::controls::UI_Popup", "UI_Popup", MakePopup),
        Button("fluxui::controls::UI_PicturePopup", "UI_PicturePopup", Make<controls::UI_PicturePopup>),
        Button("fluxui::controls::UI_PictureButton", "UI_PictureButton", Make<controls::UI_PictureButton>),
        Button("fluxui::controls::UI_TextButton", "UI_TextButton", Make<controls::UI_TextButton>),
        Edit("fluxui::controls::UI_TextEdit_S", "UI_TextEdit_S", MakeSingleLineTextEdit),
        Edit("fluxui::controls::UI_NumberEdit", "UI_NumberEdit", Make<controls::UI_NumberEdit>),
    };
    return classes;
}

} // namespace

const ArchiveClass* FindArchiveClass(std::string_view adapter) {
    for (const ArchiveClass& candidate : Classes())
        if (candidate.adapter == adapter)
            return &candidate;
    return nullptr;
}

} // namespace fluxui::archive
