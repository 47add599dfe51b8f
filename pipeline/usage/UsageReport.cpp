#include "pipeline/usage/UsageReport.h"

#include <string_view>

#include "fluxcore/ZString.h"

namespace IGD {
namespace {

constexpr std::string_view kCategory = "Ingest";
constexpr std::string_view kSubcategory = "IngestSetting";

fluxcore::config::UsageEventRef NewIngestEvent(std::string_view name) {
    const std::shared_ptr<fluxcore::config::UsageLogger> logger = fluxcore::config::UsageLogger::Get();
    return logger ? logger->NewEvent(kCategory, kSubcategory, name, {}) : nullptr;
}

// Each value repeats its key, so that a value read alone still says what it is.
void AddAttribute(fluxcore::config::UsageEvent& event, std::string_view key, std::string_view value) {
    std::string text;
    text.reserve(key.size() + 1 + value.size());
    text.append(key).append(":").append(value);
    event.AddAttribute(key, text);
}

std::string_view EnabledText(bool enabled) {
    return enabled ? "Enabled" : "Disabled";
}

} // namespace

std::string DestinationUsageEventName(std::size_t index) {
    return index == 0 ? std::string("PrimaryDestSetting") : "BackupDestSetting" + std::to_string(index);
}

fluxcore::config::UsageEventRef OpenDestinationUsageEvent(const std::string& name,
                                                          const IngestDestination& destination,
                                                          std::size_t itemCount,
                                                          std::size_t destinationCount) {
    fluxcore::config::UsageEventRef event = NewIngestEvent(name);
    if (!event)
        return event;
    AddAttribute(*event, "MetadataPreset", EnabledText(destination.IsApplyMetadata()));
    AddAttribute(*event, "RenamePreset", EnabledText(destination.IsApplyRename()));
    AddAttribute(*event, "UseSubFolder", destination.HasSubFolder() ? "Yes" : "No");
    AddAttribute(*event, "SelectItemCount", std::to_string(itemCount));
    AddAttribute(*event, "DestinationCount", std::to_string(destinationCount));
    return event;
}

void ReportCopyUsage(const fluxcore::config::UsageEventRef& event) {
    if (event)
        AddAttribute(*event, "IngestType", "Copy");
}

void ReportTranscodeUsage(const fluxcore::config::UsageEventRef& event,
                          const QL::IngestTask::TranscodeSetting& setting) {
    if (!event)
        return;
    AddAttribute(*event, "IngestType", "Transcode");
    // The report never decides anything: a setting without an exporter reports an empty format
    // rather than stopping the plan.
    const Fnd::WString format = setting.exporter ? setting.exporter->GetFormatName() : Fnd::WString();
    AddAttribute(*event, "TranscodeFormat", Fnd::ToUTF8(format));
    const Fnd::WString presetName =
        setting.preset ? setting.preset->GetName()
                       : fluxcore::Localize("$$$/Quillon/EncoderHost/CustomPresetName=Custom");
    AddAttribute(*event, "TranscodePresetName", Fnd::ToUTF8(presetName));
    AddAttribute(*event, "Concatenation", setting.concatenate ? "Yes" : "No");
}

void SendImportOnlyUsage(const IIngestDialogData& session, std::size_t itemCount) {
    const fluxcore::config::UsageEventRef event = NewIngestEvent("ImportOnlySetting");
    if (!event)
        return;
    AddAttribute(*event, "MetadataPreset", EnabledText(session.IsMetadataEnabled()));
    AddAttribute(*event, "RenamePreset", EnabledText(session.IsRenameEnabled()));
    AddAttribute(*event, "IngestType", "ImportOnly");
    AddAttribute(*event, "SelectItemCount", std::to_string(itemCount));
}

} // namespace IGD
