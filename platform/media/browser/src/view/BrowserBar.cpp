#include "BrowserBar.h"

#include <algorithm>

#include "fluxcore/ZString.h"
#include "fluxmediabrowser/MediaBrowserView.h"

namespace fluxmediabrowser {
namespace {

template <typename T> boost::intrusive_ptr<T> Add(fluxui::ui::UI_SubView& parent, T* control, const char* id) {
    boost::intrusive_ptr<T> ref(control);
    ref->UI_SetNodeID(id);
    parent.ChildPushBack(ref);
    return ref;
}

constexpr float kGap = 4.0f;
constexpr float kSearchWidth = 180.0f;
constexpr float kSearchMinimum = 80.0f;

} // namespace

BrowserBar::BrowserBar(fluxui::ui::UI_SubView& parent)
    : parentButton(Add(parent, new fluxui::controls::UI_TextButton(fluxcore::Localize("$$$/MediaBrowser/Parent=Up")),
                       kParentButtonID)),
      favoriteButton(Add(parent, new fluxui::controls::UI_TextButton(u"\u2606"), kFavoriteButtonID)),
      pathText(Add(parent, new fluxui::controls::UI_StaticText, kPathTextID)),
      listButton(Add(parent, new fluxui::controls::UI_TextButton(fluxcore::Localize("$$$/MediaBrowser/ListView=List")),
                     kListViewButtonID)),
      iconButton(Add(parent, new fluxui::controls::UI_TextButton(fluxcore::Localize("$$$/MediaBrowser/IconView=Icons")),
                     kIconViewButtonID)),
      checkAllButton(Add(parent,
                         new fluxui::controls::UI_TextButton(fluxcore::Localize("$$$/MediaBrowser/CheckAll=Check All")),
                         kCheckAllButtonID)),
      uncheckAllButton(Add(
          parent, new fluxui::controls::UI_TextButton(fluxcore::Localize("$$$/MediaBrowser/UncheckAll=Uncheck All")),
          kUncheckAllButtonID)),
      columnsPopup(Add(parent, new fluxui::controls::UI_Popup, kColumnsPopupID)),
      searchField(Add(parent, new fluxui::controls::UI_TextEdit, kSearchFieldID)) {
    parentButton->UI_SetToolTip(fluxcore::Localize("$$$/MediaBrowser/ParentTip=The folder that holds this one"));
    searchField->UI_SetToolTip(fluxcore::Localize("$$$/MediaBrowser/SearchTip=Show only the clips whose name holds this text"));
    columnsPopup->SetAllowMouseScroll(false);
}

void BrowserBar::Layout(const fluxcore::geom::RectF& rect) {
    const float top = rect.top + 2.0f;
    const float height = rect.height - 4.0f;
    float left = rect.left + kGap;
    const auto place = [&](fluxui::ui::UI_Node& node, float width) {
        node.UI_SetLocalRectF({left, top, width, height});
        left += width + kGap;
    };
    // The buttons keep their width while they fit; a narrow bar narrows them all alike.
    constexpr float kButtons = 40.0f + 28.0f + 2 * 56.0f + 2 * 88.0f + 110.0f;
    const float room = std::max(0.0f, rect.width - 10 * kGap);
    const float scale = std::clamp((room - kSearchMinimum) / kButtons, 0.0f, 1.0f);
    const float spare = room - kButtons * scale;
    const float search = std::clamp(spare - 160.0f, std::min(kSearchMinimum, spare), kSearchWidth);
    const float path = std::max(0.0f, spare - search);
    place(*parentButton, 40.0f * scale);
    place(*favoriteButton, 28.0f * scale);
    place(*pathText, path);
    place(*listButton, 56.0f * scale);
    place(*iconButton, 56.0f * scale);
    place(*checkAllButton, 88.0f * scale);
    place(*uncheckAllButton, 88.0f * scale);
    place(*columnsPopup, 110.0f * scale);
    place(*searchField, std::max(0.0f, search));
}

} // namespace fluxmediabrowser
