#include "PlaceRows.h"

#include "fluxcore/ZString.h"

namespace fluxmediabrowser {

std::vector<fluxui::controls::ListRow> MakePlaceRows(const std::vector<Place>& places) {
    std::vector<fluxui::controls::ListRow> rows;
    rows.reserve(places.size());
    for (const Place& place : places) {
        fluxui::controls::ListRow row;
        row.key = Fnd::ToUTF8(place.path);
        Fnd::WString name = place.name.empty() ? place.path : place.name;
        if (place.kind == Place::Kind::Volume && place.removable)
            name = fluxcore::Localize("$$$/MediaBrowser/Removable=@0 (removable)", {name});
        // Without headings between the groups, a favourite is told from a recent folder by its star.
        if (place.kind == Place::Kind::Favorite)
            name = u"\u2605 " + name;
        row.cells = {std::move(name)};
        row.folder = true;
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace fluxmediabrowser
