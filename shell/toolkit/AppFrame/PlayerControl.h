#pragma once
#include <functional>
#include <map>

namespace AppFrame {

// Every preview player registers how to stop it, so a dialog can silence them all before it
// changes what they play.
class PlayerControl {
public:
    using StopFunction = std::function<void()>;

    // Answers a key for Unregister.
    static int Register(StopFunction stop);
    static void Unregister(int key);
    static void StopAllPlayers();
};

} // namespace AppFrame
