#pragma once
#include <chrono>
#include <memory>
#include <string>

#include "Fnd/WString.h"
#include "QL/Engine/CopyBackend.h"

namespace QL::Engine {

struct TaskServiceOptions {
    // The project that imports go to; empty: Proj::DefaultProjectPath(). Recorded with each batch,
    // so a resumed batch goes to the project it was started for.
    std::string projectPath;
    // The journal; empty: $IGD_HOME/journal.sqlite.
    std::string journalPath;
    // The bin of a start message that names none; empty: the root bin.
    Fnd::WString defaultBin;
    // Batches run side by side on this many threads; within a batch, sources are read one by one
    // so that a card is read sequentially.
    unsigned workerThreads = 1;
    // Null: the file copier with its default chunk size.
    std::shared_ptr<CopyBackend> copyBackend;
    // A journal that is no journal (garbage, another kind of file) is set aside and a new one
    // begun, rather than refusing to work: what a new ingest wants. Resume leaves it alone, and
    // says why it cannot use it. See TaskService::JournalNotice.
    bool setAsideUnreadableJournal = false;
    // The least time between two progress messages of a batch.
    std::chrono::milliseconds progressInterval{250};
};

} // namespace QL::Engine
