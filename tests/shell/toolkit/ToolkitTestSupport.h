#pragma once
#include <utility>
#include <vector>

#include <boost/intrusive_ptr.hpp>
#include <gtest/gtest.h>

#include "fluxui/controls/UI_InteractiveControlView.h"
#include "fluxui/sketcher/Sketcher.h"
#include "fluxui/ui/UI_NodeObserver.h"

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

// Counts both notifications of a control and whether the person made the last change, and checks
// that each message names its sender.
struct Notifications {
    explicit Notifications(fluxui::controls::UI_InteractiveControlView& control) {
        control.NotifyWhenChanged([this, &control](const fluxui::controls::UI_ControlMessage& message) {
            EXPECT_EQ(&message.GetControl(), &control);
            ++changed;
            lastInteractive = message.IsInteractive();
        });
        control.NotifyWhenChangedInteractively(
            [this](const fluxui::controls::UI_ControlMessage&) { ++interactive; });
    }
    Notifications(const Notifications&) = delete;
    Notifications& operator=(const Notifications&) = delete;

    int changed = 0;
    int interactive = 0;
    bool lastInteractive = false;
};

// Records what is drawn, as the sketcher is told it.
class RecordingSketcher : public fluxui::sketcher::Sketcher {
public:
    using RectF = fluxcore::geom::RectF;
    using PointF = fluxcore::geom::PointF;
    using ColorRGBA = fluxui::sketcher::ColorRGBA;
    struct Line {
        PointF from, to;
        ColorRGBA color;
        float width;
    };
    struct Outline {
        RectF rect;
        ColorRGBA color;
    };
    void FillRect(const RectF& rect, const ColorRGBA&) override { fills.push_back(rect); }
    void DrawLine(PointF from, PointF to, const ColorRGBA& color, float width) override {
        lines.push_back({from, to, color, width});
    }
    void DrawOutline(const RectF& rect, const ColorRGBA& color) override {
        outlines.push_back({rect, color});
    }
    // The outlines drawn in the colour given.
    std::vector<RectF> OutlinesIn(const ColorRGBA& color) const {
        std::vector<RectF> found;
        for (const Outline& outline : outlines)
            if (outline.color == color)
                found.push_back(outline.rect);
        return found;
    }

    std::vector<RectF> fills;
    std::vector<Line> lines;
    std::vector<Outline> outlines;
};

} // namespace igd::test
