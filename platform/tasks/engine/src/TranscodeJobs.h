#pragma once
#include <cstddef>
#include <vector>

#include "BatchRun.h"

namespace QL::Engine {

// The clips one decode reads and the files it writes: every pending output of the run whose task
// reads the same clips with the same points, so that several destinations transcoding one clip
// decode it once. Jobs come in the order of their first output.
struct TranscodeJob {
    std::vector<IngestTask::TranscodeClipEntry> clips;
    std::vector<std::size_t> outputs; // indexes into the run's files
};

std::vector<TranscodeJob> TranscodeJobsOf(const BatchRun& run);

} // namespace QL::Engine
