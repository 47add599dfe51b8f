#pragma once
#include <utility>
#include <vector>

#include <boost/intrusive_ptr.hpp>

#include "shell/toolkit/fluxui/ui/UI_NodeObserver.h"

namespace igd::test {

template <typename T, typename... Args> boost::intrusive_ptr<T> Make(Args&&... args) {
    return boost::intrusive_ptr<T>(new T(std::forward<Args>(args)...));
}

// Records what a presenter would be told.
class RecordingObserver : public fluxui::ui::UI_NodeObserver {
public:
    struct Event {
        fluxui::ui::UI_Node* node;
        fluxui::ui::NodeChange change;
    };
    void UI_NodeChanged(fluxui::ui::UI_Node& node, fluxui::ui::NodeChange change) override {
        events.push_back({&node, change});
    }
    int Count(const fluxui::ui::UI_Node* node, fluxui::ui::NodeChange change) const {
        int count = 0;
        for (const Event& event : events)
            count += event.node == node && event.change == change;
        return count;
    }
    std::vector<Event> events;
};

} // namespace igd::test
