#pragma once
#include <cstdint>
#include <map>
#include <vector>

#include "EncoderHost/IPreset.h"
#include "Fnd/InterfaceRef.h"
#include "Fnd/WString.h"
#include "IGD/IngestDestination.h"
#include "Plug/IExporterModule.h"

namespace IGD {

// One destination as the option sections edit it: element 0 of the controller's destinations is
// the primary, the others the backups in the order shown. Copying shares the destination and
// the exporter and copies the lists.
struct DestinationSetting {
    // The most recent folders a list keeps.
    static constexpr std::size_t kMaxRecentPaths = 5;

    IngestDestinationRef destination;
    bool enabled = false;
    // Newest first.
    std::vector<Fnd::WString> pathsMRU;
    bool needSubFolder = true;
    // Rebuilt whenever the preset popup is filled; never stored.
    std::map<std::int32_t, Fnd::InterfaceRef<EncoderHost::IPreset>> presetsByRow;
    // The exporter chosen in the format popup; never stored.
    Fnd::InterfaceRef<Plug::IExporterModule> exporter;

    // Puts path at the head of the list. Only the first four old entries are looked at, so
    // moving an entry up drops the fifth: [A, B, C, D, E] with C gives [C, A, B, D]. An empty
    // path changes nothing; entries compare exactly, case included.
    void AddPathToMRU(const Fnd::WString& path);
};

} // namespace IGD
