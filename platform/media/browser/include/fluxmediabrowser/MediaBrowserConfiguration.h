#pragma once

namespace fluxmediabrowser {

// How the host runs the browser. The defaults suit the full editor.
struct MediaBrowserConfiguration {
    // The host is the kind of application that shows the browser in its own window (kind 13).
    bool standaloneApplication = false;
    // The light editor: fewer columns at first.
    bool lightEditor = false;
};

} // namespace fluxmediabrowser
