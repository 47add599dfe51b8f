#pragma once
#include <utility>

#include <boost/intrusive_ptr.hpp>
#include <gtest/gtest.h>

#include "fluxui/controls/UI_InteractiveControlView.h"

namespace igd::test {

template <typename T, typename... Args> boost::intrusive_ptr<T> Make(Args&&... args) {
    return boost::intrusive_ptr<T>(new T(std::forward<Args>(args)...));
}

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

} // namespace igd::test
