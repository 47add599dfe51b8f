#pragma once
#include <functional>
#include <string>

namespace QL {

// A preset file the service skipped: malformed, truncated, of an unknown version or of the other
// category. The file is left exactly as it is.
struct PresetLoadWarning {
    std::string path;
    std::string reason;
};

using PresetLoadWarningHandler = std::function<void(const PresetLoadWarning&)>;

// The host's hook, called on the thread that lists presets, once per broken file until the file
// changes, and for every file that InstallPreset refuses. It runs outside the service's lock, so
// it may call the service. Null (the default) keeps the service silent.
void SetPresetLoadWarningHandler(PresetLoadWarningHandler handler);
void ReportPresetLoadWarning(const PresetLoadWarning& warning);

} // namespace QL
