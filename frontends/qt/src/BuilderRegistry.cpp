#include "IgdQt/BuilderRegistry.h"

#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_Divider.h"
#include "fluxui/controls/UI_FrameView.h"
#include "fluxui/controls/UI_ListView.h"
#include "fluxui/controls/UI_NumberEdit.h"
#include "fluxui/controls/UI_OutlineBox.h"
#include "fluxui/controls/UI_PictureButton.h"
#include "fluxui/controls/UI_PicturePopup.h"
#include "fluxui/controls/UI_Popup.h"
#include "fluxui/controls/UI_ScrollView.h"
#include "fluxui/controls/UI_SectionView.h"
#include "fluxui/controls/UI_Slider.h"
#include "fluxui/controls/UI_SplitterView.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"

namespace igd::qt {

void BuilderRegistry::Register(std::string className, Matcher matcher,
                               std::shared_ptr<const ControlBuilder> builder) {
    byName_[className] = entries_.size();
    entries_.push_back({std::move(className), std::move(matcher), std::move(builder)});
}

const ControlBuilder& BuilderRegistry::Find(const fluxui::ui::UI_Node& node) const {
    const auto named = byName_.find(node.UI_GetClassName());
    if (named != byName_.end())
        return *entries_[named->second].builder;
    for (const Entry& entry : entries_)
        if (entry.matcher(node))
            return *entry.builder;
    return *fallback_;
}

namespace {

template <typename T> BuilderRegistry::Matcher Is() {
    return [](const fluxui::ui::UI_Node& node) { return dynamic_cast<const T*>(&node) != nullptr; };
}

BuilderRegistry MakeStandard() {
    using namespace fluxui::controls;
    BuilderRegistry registry;
    // Derived classes first: a number edit is a text edit, a picture popup a popup, and every
    // button kind a button.
    registry.Register("UI_NumberEdit", Is<UI_NumberEdit>(), MakeNumberEditBuilder());
    registry.Register("UI_TextEdit", Is<UI_TextEdit>(), MakeTextEditBuilder());
    registry.Register("UI_Checkbox", Is<UI_Checkbox>(), MakeCheckboxBuilder());
    registry.Register("UI_PicturePopup", Is<UI_PicturePopup>(), MakePicturePopupBuilder());
    registry.Register("UI_Popup", Is<UI_Popup>(), MakePopupBuilder());
    registry.Register("UI_TextButton", Is<UI_TextButton>(), MakeTextButtonBuilder());
    registry.Register("UI_PictureButton", Is<UI_PictureButton>(), MakePictureButtonBuilder());
    registry.Register("UI_StaticText", Is<UI_StaticText>(), MakeStaticTextBuilder());
    registry.Register("UI_FrameView", Is<UI_FrameView>(), MakeFrameViewBuilder());
    registry.Register("UI_Slider", Is<UI_Slider>(), MakeSliderBuilder());
    registry.Register("UI_Divider", Is<UI_Divider>(), MakeDividerBuilder());
    registry.Register("UI_OutlineBox", Is<UI_OutlineBox>(), MakeOutlineBoxBuilder());
    registry.Register("UI_ScrollBar", Is<UI_ScrollBar>(), MakeScrollBarBuilder());
    registry.Register("UI_ScrollView", Is<UI_ScrollView>(), MakeScrollViewBuilder());
    registry.Register("UI_SectionView", Is<UI_SectionView>(), MakeSectionViewBuilder());
    registry.Register("UI_SplitterView", Is<UI_SplitterView>(), MakeSplitterBuilder());
    registry.Register("UI_ListView", Is<UI_ListView>(), MakeListViewBuilder());
    registry.SetFallback(MakeContainerBuilder());
    return registry;
}

} // namespace

const BuilderRegistry& BuilderRegistry::Standard() {
    static const BuilderRegistry registry = MakeStandard();
    return registry;
}

} // namespace igd::qt
