#include "Fnd/StationUtils.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <unordered_map>
#include <vector>

#include "InstalledRunLoop.h"

namespace Fnd::StationUtils {

namespace {

// Listeners of one station. While a broadcast runs, removal only clears the slot, so that the
// indices the broadcast walks stay put; the slots are compacted when the last broadcast ends.
struct Station {
    std::vector<Listener*> listeners;
    int deliveries = 0;
    bool hasClearedSlots = false;
};

class Registry {
public:
    void Add(const StationID& station, Listener* listener) {
        std::lock_guard lock(mutex_);
        auto& listeners = stations_[station].listeners;
        if (std::find(listeners.begin(), listeners.end(), listener) == listeners.end())
            listeners.push_back(listener);
    }

    void Remove(const StationID& station, Listener* listener) {
        std::lock_guard lock(mutex_);
        const auto found = stations_.find(station);
        if (found == stations_.end())
            return;
        auto& entry = found->second;
        const auto slot = std::find(entry.listeners.begin(), entry.listeners.end(), listener);
        if (slot == entry.listeners.end())
            return;
        if (entry.deliveries > 0) {
            *slot = nullptr;
            entry.hasClearedSlots = true;
        } else {
            entry.listeners.erase(slot);
            if (entry.listeners.empty())
                stations_.erase(found);
        }
    }

    void Broadcast(const StationID& station, const Message& message) {
        std::size_t count = 0;
        {
            std::lock_guard lock(mutex_);
            const auto found = stations_.find(station);
            if (found == stations_.end())
                return;
            ++found->second.deliveries;
            // Listeners added during this broadcast wait for the next message.
            count = found->second.listeners.size();
        }
        // Ends the delivery even when a listener throws, so the station does not stay locked in
        // its clearing mode.
        struct DeliveryEnd {
            Registry& registry;
            const StationID& station;
            ~DeliveryEnd() { registry.EndDelivery(station); }
        } end{*this, station};

        for (std::size_t i = 0; i < count; ++i) {
            Listener* listener = nullptr;
            {
                std::lock_guard lock(mutex_);
                listener = stations_.at(station).listeners[i];
            }
            // Called unlocked: the listener may add or remove listeners, or broadcast again.
            if (listener)
                listener->ListenToMessage(station, message);
        }
    }

private:
    void EndDelivery(const StationID& station) {
        std::lock_guard lock(mutex_);
        const auto found = stations_.find(station);
        auto& entry = found->second;
        if (--entry.deliveries > 0 || !entry.hasClearedSlots)
            return;
        std::erase(entry.listeners, nullptr);
        entry.hasClearedSlots = false;
        if (entry.listeners.empty())
            stations_.erase(found);
    }

    std::mutex mutex_;
    // A station is only erased when no broadcast is walking it.
    std::unordered_map<StationID, Station> stations_;
};

Registry& TheRegistry() {
    static Registry* registry = new Registry;
    return *registry;
}

} // namespace

void AddListener(const StationID& station, Listener* listener) {
    if (!listener)
        throw std::invalid_argument("StationUtils::AddListener: null listener");
    TheRegistry().Add(station, listener);
}

void RemoveListener(const StationID& station, Listener* listener) {
    TheRegistry().Remove(station, listener);
}

void BroadcastMessage(const StationID& station, const Message& message) {
    TheRegistry().Broadcast(station, message);
}

void PostMessageToUIThread(const StationID& station, const Message& message, bool urgent) {
    // The caller's message may be gone by the time the loop runs; the task owns a copy.
    std::shared_ptr<const Message> copy = message.Clone();
    detail::AcquireRunLoop()->Post([station, copy] { BroadcastMessage(station, *copy); }, urgent);
}

} // namespace Fnd::StationUtils
