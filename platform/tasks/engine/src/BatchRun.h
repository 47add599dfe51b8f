#pragma once
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "BatchLock.h"
#include "BatchProgress.h"
#include "QL/Engine/CopyControl.h"
#include "QL/Engine/DestinationLocks.h"
#include "QL/Engine/FileCopier.h"
#include "QL/Engine/Journal.h"
#include "fluxcore/Guid.h"

namespace QL::Engine {

struct RunTask {
    std::int64_t id = 0; // below 0 when the journal could not record it
    TaskRecord record;
    bool finished = false;
};

// One started batch, from the start message (or a resume) to its outcome. The UI thread builds
// it; from then on only its worker touches the tasks and files; control and progress are shared.
struct BatchRun {
    fluxcore::utility::Guid batch;
    Fnd::WString targetBin;
    std::string projectPath;
    std::vector<RunTask> tasks;    // submission order
    std::vector<FileRecord> files; // by task, unit and entry
    bool resumed = false;
    std::vector<Fnd::WString> indexedTargets; // what the copy list holds for this run
    std::string journalProblem;               // the first journal failure, if any

    std::shared_ptr<CopyControl> control = std::make_shared<CopyControl>();
    std::shared_ptr<BatchProgress> progress;
    // Set when the service ends under it: the batch stays resumable instead of cancelled.
    std::atomic<bool> interrupted{false};
    BatchLock lock;
    DestinationLocks destinationLocks; // held by a resumed batch while it runs
    // What a source (UTF-8 path) must hash to, when a history of the media lists it; may be empty.
    std::function<std::optional<ExpectedDigest>(const std::string& source)> expectedDigestOf;
};

} // namespace QL::Engine
