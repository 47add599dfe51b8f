#pragma once
#include "Fnd/Listener.h"

namespace Fnd::StationUtils {

// Listeners are called in the order they were added. A listener may add or remove listeners,
// itself included, while a message is being delivered; a removed one is not called again.
void AddListener(const StationID& station, Listener* listener);
void RemoveListener(const StationID& station, Listener* listener);

// Delivers to every listener of the station before it returns. UI thread only.
void BroadcastMessage(const StationID& station, const Message& message);

// Delivers a copy later on the UI thread, through the run loop. Safe from any thread. An urgent
// message is delivered before the ordinary ones still waiting.
void PostMessageToUIThread(const StationID& station, const Message& message, bool urgent);

} // namespace Fnd::StationUtils
