#include "pipeline/apply/ApplyFlags.h"

namespace IGD {
namespace {

// An enabled template without fields would rename to nothing or stamp nothing; it counts as off.
bool TemplateIsOn(bool enabled, const PresetRef& preset) {
    return enabled && preset && !preset->GetFields().empty();
}

constexpr std::uint32_t kApplyToAllDestinations = 0;

} // namespace

void ComputeApplyFlags(IIngestDialogData& session) {
    const bool renameOn = TemplateIsOn(session.IsRenameEnabled(), session.GetRenamePreset());
    const bool metadataOn = TemplateIsOn(session.IsMetadataEnabled(), session.GetMetadataPreset());
    const bool renameBackup = renameOn && session.GetRenameApplyScope() == kApplyToAllDestinations;
    const bool metadataBackup = metadataOn && session.GetMetadataApplyScope() == kApplyToAllDestinations;
    for (const auto& destination : session.GetDestinations()) {
        const bool primary = destination->IsPrimary();
        destination->SetApplyRename(primary ? renameOn : renameBackup);
        destination->SetApplyMetadata(primary ? metadataOn : metadataBackup);
    }
}

} // namespace IGD
