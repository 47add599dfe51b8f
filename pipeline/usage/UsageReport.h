#pragma once
// Anonymous usage events of the plan: one for each destination, or one for an import-only
// request. Without a logger nothing is reported and nothing else changes.
#include <cstddef>
#include <string>

#include "IGD/IIngestDialogData.h"
#include "QL/TranscodeSetting.h"
#include "fluxcore/UsageLogger.h"

namespace IGD {

// "PrimaryDestSetting" for the first destination in the list, "BackupDestSetting<n>" for the others.
std::string DestinationUsageEventName(std::size_t index);

// Opens the event of one destination's turn with the attributes every destination reports; null
// without a logger. The event is sent when the caller lets it go.
fluxcore::config::UsageEventRef OpenDestinationUsageEvent(const std::string& name,
                                                          const IngestDestination& destination,
                                                          std::size_t itemCount,
                                                          std::size_t destinationCount);

void ReportCopyUsage(const fluxcore::config::UsageEventRef& event);
void ReportTranscodeUsage(const fluxcore::config::UsageEventRef& event,
                          const QL::IngestTask::TranscodeSetting& setting);

// Sends the one event of a request that transfers nothing.
void SendImportOnlyUsage(const IIngestDialogData& session, std::size_t itemCount);

} // namespace IGD
