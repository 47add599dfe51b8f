#pragma once
#include <functional>

#include "BatchRun.h"
#include "QL/Engine/CopyBackend.h"

namespace QL::Engine {

// Runs one started batch on the calling worker thread, from its first copy to its outcome: the
// resume clean-up when it was interrupted before, the copies, then each task's imports in
// submission order, the journal kept up to date throughout. beforeOutcome runs just before the
// batch's outcome is posted (the service takes the batch's targets off its copy list there).
void ExecuteBatch(BatchRun& run, Journal& journal, CopyBackend& backend,
                  const std::function<void()>& beforeOutcome);

} // namespace QL::Engine
