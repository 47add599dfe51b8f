#include "pipeline/naming/RenameCounter.h"

#include <algorithm>
#include <limits>

namespace IGD {
namespace {

constexpr std::uint32_t kApplyToPrimaryOnly = 1;

bool HasCustomCounter(const PresetRef& preset) {
    if (!preset)
        return false;
    const QL::PresetFieldList fields = preset->GetFields();
    return std::any_of(fields.begin(), fields.end(), [](const auto& field) {
        return field->GetType() == QL::kQLFieldUserDefinedAutoIncrement;
    });
}

} // namespace

std::uint32_t RenameCounterStep(const IIngestDialogData& session) {
    if (!HasCustomCounter(session.GetRenamePreset()))
        return 0;
    const DestinationList destinations = session.GetDestinations();
    const bool stitching = std::any_of(destinations.begin(), destinations.end(), [](const auto& destination) {
        const auto setting = destination->GetTranscodeSetting();
        return setting && setting->concatenate;
    });
    // A stitch that is the only renamed result used one number, however many clips went into it.
    if (stitching && (destinations.size() == 1 || session.GetRenameApplyScope() == kApplyToPrimaryOnly))
        return 1;
    return static_cast<std::uint32_t>(session.GetSelectedItems().size());
}

std::optional<std::uint32_t> NextStartNumber(std::uint32_t startNumber, std::uint64_t used) {
    const std::uint64_t next = std::uint64_t{std::max<std::uint32_t>(startNumber, 1)} + used;
    if (next > std::numeric_limits<std::uint32_t>::max())
        return std::nullopt;
    return static_cast<std::uint32_t>(next);
}

} // namespace IGD
