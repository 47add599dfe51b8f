#pragma once
#include <string_view>

#include "Fnd/Message.h"

namespace fluxmediabrowser {

// Posted on the browser's station after each change of ticks.
class MediaBrowserCheckStatusChanged : public Fnd::MessageT<MediaBrowserCheckStatusChanged> {
public:
    static constexpr std::string_view kTypeName = "fluxmediabrowser::MediaBrowserCheckStatusChanged";
    explicit MediaBrowserCheckStatusChanged(bool anyChecked) : anyChecked_(anyChecked) {}
    // True when at least one item is ticked.
    bool GetCheckStatus() const { return anyChecked_; }

private:
    bool anyChecked_;
};

} // namespace fluxmediabrowser
