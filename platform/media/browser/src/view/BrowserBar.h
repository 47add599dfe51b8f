#pragma once
// The bar above the browser: up to the parent folder, the folder as a favourite, where the browser is, list or icons, check
// all and uncheck all, the columns shown, and the search field.
#include <boost/intrusive_ptr.hpp>

#include "fluxcore/geom/Geometry.h"
#include "fluxui/controls/UI_Popup.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "fluxui/ui/UI_SubView.h"

namespace fluxmediabrowser {

inline constexpr float kBarHeight = 28.0f;

struct BrowserBar {
    // Made with their ids and texts, children of parent.
    explicit BrowserBar(fluxui::ui::UI_SubView& parent);
    // Places the controls along rect (parent's space); the path text takes what is left over and
    // the search field gives way first when the bar is narrow.
    void Layout(const fluxcore::geom::RectF& rect);

    boost::intrusive_ptr<fluxui::controls::UI_TextButton> parentButton;
    // Adds the folder shown to the favourites, or takes it out.
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> favoriteButton;
    boost::intrusive_ptr<fluxui::controls::UI_StaticText> pathText;
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> listButton;
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> iconButton;
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> checkAllButton;
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> uncheckAllButton;
    boost::intrusive_ptr<fluxui::controls::UI_Popup> columnsPopup;
    boost::intrusive_ptr<fluxui::controls::UI_TextEdit> searchField;
};

} // namespace fluxmediabrowser
