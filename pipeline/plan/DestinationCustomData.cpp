#include "pipeline/plan/DestinationCustomData.h"

namespace IGD {

QL::IngestCustomData CustomDataForDestination(const QL::IngestCustomData& data,
                                              const IngestDestination& destination) {
    if (destination.IsApplyMetadata() && !data.metadataSets.empty())
        return data;
    QL::IngestCustomData filtered;
    filtered.minimumMetadata = data.minimumMetadata;
    return filtered;
}

} // namespace IGD
