#pragma once
// Anonymous usage events. Nothing is reported unless a host (or a test) installs a logger: the
// default is none, and every caller must treat a null logger or a null event as "no report".
#include <memory>
#include <string_view>
#include <utility>

namespace fluxcore::config {

// One event. Attributes are narrow key/value pairs, kept in the order they were added. The event
// is sent when its last reference goes, so an implementation sends from its destructor.
class __attribute__((visibility("default"))) UsageEvent {
public:
    virtual ~UsageEvent() = default;
    virtual void AddAttribute(std::string_view key, std::string_view value) = 0;
};

using UsageEventRef = std::shared_ptr<UsageEvent>;

class __attribute__((visibility("default"))) UsageLogger {
public:
    virtual ~UsageLogger() = default;

    // A new event under category / subcategory / name; extra is free text of the logger. May
    // answer null when the logger does not want the event.
    virtual UsageEventRef NewEvent(std::string_view category, std::string_view subcategory,
                                   std::string_view name, std::string_view extra) = 0;

    // The installed logger, or null.
    static std::shared_ptr<UsageLogger> Get() { return Slot(); }
    // Replaces the installed logger; null removes it.
    static void Set(std::shared_ptr<UsageLogger> logger) { Slot() = std::move(logger); }

private:
    // One slot for the process: the inline function with default visibility is shared by every
    // module that includes this header.
    static std::shared_ptr<UsageLogger>& Slot() {
        static std::shared_ptr<UsageLogger> logger;
        return logger;
    }
};

} // namespace fluxcore::config
