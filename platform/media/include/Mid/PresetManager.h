#pragma once
#include <memory>
#include <vector>

#include "EncoderHost/IPreset.h"
#include "Fnd/InterfaceRef.h"
#include "Plug/IExporterModule.h"

namespace Mid {

using ExporterRef = Fnd::InterfaceRef<Plug::IExporterModule>;
using EncoderPresetRef = Fnd::InterfaceRef<EncoderHost::IPreset>;

// The media layer's encoders as the host installed them: the exporters an ingest can transcode
// to, and the presets of each.
class PresetManager {
public:
    virtual ~PresetManager() = default;

    // The installed manager; without one, a manager that knows no exporter.
    static PresetManager& GetInstance();
    // Installs the host's manager (null: none again). Done once at start-up, before any dialog.
    static void Install(std::shared_ptr<PresetManager> manager);

    // Stable order within a run.
    virtual const std::vector<ExporterRef>& GetEncoderList() = 0;
    // Fills `user` with the user's presets of the exporter and `system` with the shipped ones,
    // each in a stable order; flags are reserved and 0.
    virtual void LoadPresets(const ExporterRef& exporter, std::vector<EncoderPresetRef>& user,
                             std::vector<EncoderPresetRef>& system, int flags) = 0;
};

} // namespace Mid
