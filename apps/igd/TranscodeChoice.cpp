#include "TranscodeChoice.h"

#include <vector>

#include "Mid/PresetManager.h"

namespace igd {

DestinationArgument SplitDestinationArgument(const std::string& argument) {
    const auto slash = argument.rfind('/');
    const auto colon = argument.find(':', slash == std::string::npos ? 0 : slash + 1);
    if (colon == std::string::npos || colon == 0)
        return {argument, {}};
    return {argument.substr(0, colon), argument.substr(colon + 1)};
}

std::string FindTranscodePreset(const std::string& preset, IGD::DestinationTranscode& choice) {
    std::string exporterWanted;
    std::string presetWanted = preset;
    Mid::PresetManager& encoders = Mid::PresetManager::GetInstance();
    const std::vector<Mid::ExporterRef>& exporters = encoders.GetEncoderList();
    if (exporters.empty())
        return "this build has no encoders to transcode with";
    // "EXPORTER:PRESET" names the exporter only when one is called so: preset names may hold ":".
    if (const auto colon = preset.find(':'); colon != std::string::npos)
        for (const Mid::ExporterRef& exporter : exporters)
            if (exporter && Fnd::ToUTF8(exporter->GetDisplayName()) == preset.substr(0, colon)) {
                exporterWanted = preset.substr(0, colon);
                presetWanted = preset.substr(colon + 1);
            }

    std::vector<std::string> offering;
    for (const Mid::ExporterRef& exporter : exporters) {
        const std::string exporterName = Fnd::ToUTF8(exporter->GetDisplayName());
        if (!exporterWanted.empty() && exporterName != exporterWanted)
            continue;
        std::vector<Mid::EncoderPresetRef> user;
        std::vector<Mid::EncoderPresetRef> system;
        encoders.LoadPresets(exporter, user, system, 0);
        bool offers = false;
        for (const auto* presets : {&system, &user})
            for (const Mid::EncoderPresetRef& candidate : *presets)
                offers = offers || (candidate && Fnd::ToUTF8(candidate->GetName()) == presetWanted);
        if (offers)
            offering.push_back(exporterName);
    }
    if (offering.empty())
        return "no encoder preset is named \"" + presetWanted + "\"" +
               (exporterWanted.empty() ? std::string() : " for " + exporterWanted) + " (igd encoders lists them)";
    if (offering.size() > 1) {
        std::string names;
        for (const std::string& name : offering)
            names += (names.empty() ? "" : ", ") + name;
        return "the preset \"" + presetWanted + "\" is offered by " + names + ": give it as EXPORTER:" + presetWanted;
    }
    choice.exporterName = Fnd::FromUTF8(offering.front());
    choice.presetName = Fnd::FromUTF8(presetWanted);
    return {};
}

} // namespace igd
