#pragma once
// How the browser gets a preview player: the host of the browser registers a factory.
#include <functional>

#include "Mid/PlayerOwner.h"
#include "fluxcore/geom/Geometry.h"

namespace fluxmediabrowser {

// parent, item, owns-window flag, player rect (in parent's space), clip rect (in the player's).
using RequestMBPlayerOwnerFxn = std::function<Mid::PlayerOwnerRef(
    fluxui::ui::UI_SubView& parent, const Mid::PlayerItem& item, bool ownsWindow,
    const fluxcore::geom::RectF& playerRect, const fluxcore::geom::RectF& clipRect)>;

// Replaces the factory; an empty function leaves the browser without a player.
void SetRequestMBPlayerOwnerSharedFxn(RequestMBPlayerOwnerFxn factory);
const RequestMBPlayerOwnerFxn& GetRequestMBPlayerOwnerSharedFxn();

} // namespace fluxmediabrowser
