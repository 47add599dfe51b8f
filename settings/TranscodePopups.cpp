// The controller's part in the transcode sections: the format and preset popups over the media
// layer's encoder list, and the preset a popup row stands for.
#include <map>
#include <vector>

#include "Fnd/NullInterfaceException.h"
#include "Mid/PresetManager.h"
#include "fluxcore/ZString.h"
#include "fluxui/controls/UI_Popup.h"
#include "settings/IngestSettingsController.h"

namespace IGD {

void IngestSettingsController::FillFormatPopup(fluxui::controls::UI_Popup& popup) const {
    popup.DeleteAllItems();
    for (const Mid::ExporterRef& exporter : Mid::PresetManager::GetInstance().GetEncoderList()) {
        if (!exporter)
            throw Fnd::NullInterfaceException("the encoder list holds a null exporter");
        popup.AddItem(exporter->GetDisplayName());
    }
}

void IngestSettingsController::FillPresetPopup(fluxui::controls::UI_Popup& popup, std::int32_t index,
                                               std::int32_t exporterRow) {
    popup.DeleteAllItems();
    Mid::PresetManager& encoders = Mid::PresetManager::GetInstance();
    DestinationSetting& record = GetDestinationSetting(index);
    const std::vector<Mid::ExporterRef>& exporters = encoders.GetEncoderList();
    // A row that is no exporter (none chosen, or a list that shrank) keeps the one the record has.
    if (exporterRow >= 0 && static_cast<std::size_t>(exporterRow) < exporters.size())
        record.exporter = exporters[static_cast<std::size_t>(exporterRow)];

    std::vector<Mid::EncoderPresetRef> user;
    std::vector<Mid::EncoderPresetRef> shipped;
    encoders.LoadPresets(record.exporter, user, shipped, 0);

    std::map<std::int32_t, Mid::EncoderPresetRef> presetsByRow;
    popup.UI_SetDisabled(user.empty() && shipped.empty());
    if (user.empty() && shipped.empty()) {
        popup.AddItem(fluxcore::Localize("$$$/Quillon/EncoderHost/CustomPresetName=Custom"));
        presetsByRow.emplace(0, nullptr);
    } else {
        std::int32_t row = 0;
        const auto add = [&](const Fnd::WString& text, const Mid::EncoderPresetRef& preset) {
            popup.AddItem(text);
            presetsByRow.emplace(row++, preset);
        };
        // The shipped presets lead: they are the ones every site has.
        for (const Mid::EncoderPresetRef& preset : shipped)
            add(preset->GetName(), preset);
        // The separator is a row too; choosing it leaves the destination without a preset.
        if (!shipped.empty() && !user.empty())
            add(Fnd::WString(), nullptr);
        for (const Mid::EncoderPresetRef& preset : user)
            add(preset->GetName(), preset);
    }
    record.presetsByRow = std::move(presetsByRow);
}

void IngestSettingsController::RememberPreset(DestinationSetting& record, std::int32_t row) {
    if (!record.destination)
        return;
    const auto setting = record.destination->GetTranscodeSetting();
    if (!setting)
        return;
    if (const auto found = record.presetsByRow.find(row); found != record.presetsByRow.end())
        setting->preset = found->second;
    setting->exporter = record.exporter;
}

} // namespace IGD
