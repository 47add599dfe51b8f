#include "AppFrame/PlayerControl.h"

#include <vector>

namespace AppFrame {
namespace {

struct Players {
    std::map<int, PlayerControl::StopFunction> stops;
    int next = 1;
};

Players& AllPlayers() {
    static Players* players = new Players;
    return *players;
}

} // namespace

int PlayerControl::Register(StopFunction stop) {
    const int key = AllPlayers().next++;
    AllPlayers().stops[key] = std::move(stop);
    return key;
}

void PlayerControl::Unregister(int key) {
    AllPlayers().stops.erase(key);
}

void PlayerControl::StopAllPlayers() {
    // Copied: stopping a player may unregister it.
    std::vector<StopFunction> stops;
    for (const auto& [key, stop] : AllPlayers().stops)
        stops.push_back(stop);
    for (const StopFunction& stop : stops)
        stop();
}

} // namespace AppFrame
