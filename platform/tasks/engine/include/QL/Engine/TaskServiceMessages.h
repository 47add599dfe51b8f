#pragma once
// What the task service tells a host, posted to the UI thread on the service's own station.
#include <cstdint>
#include <string>
#include <string_view>

#include "Fnd/Listener.h"
#include "Fnd/Message.h"
#include "Fnd/WString.h"
#include "QL/Engine/BatchCounters.h"
#include "QL/Engine/FileCopier.h"
#include "QL/Engine/TaskKind.h"
#include "fluxcore/Guid.h"

namespace QL::Engine {

inline const Fnd::StationID kStation_TaskService{"QL.TaskService"};

// How far a running batch is. Counts are of source files read (a source written to two
// destinations counts once) and their bytes. Posted a few times a second at most, once when the
// batch starts, on pause and resume, and once when its copies are over.
struct BatchProgressMessage : Fnd::MessageT<BatchProgressMessage> {
    static constexpr std::string_view kTypeName = "QL::Engine::BatchProgressMessage";
    fluxcore::utility::Guid batch;
    std::uint64_t filesDone = 0;
    std::uint64_t filesTotal = 0;
    std::uint64_t bytesDone = 0;
    std::uint64_t bytesTotal = 0;
    Fnd::WString currentFile;  // the source being read; empty between files
    double bytesPerSecond = 0; // over the last few seconds; 0 until it can be measured
    bool paused = false;
    // While a transcode or stitch runs: frames and seconds of media of the clips it decodes,
    // currentFile naming the clip. Zero totals while none runs.
    std::uint64_t framesDone = 0;
    std::uint64_t framesTotal = 0;
    double mediaSecondsDone = 0;
    double mediaSecondsTotal = 0;
};

enum class FileStatus : std::uint8_t {
    Copied,        // verified (when asked) and standing under finalPath
    Transcoded,    // written by a transcode or stitch, checked, standing under finalPath
    Skipped,       // an existing target was kept as it stands
    AlreadyCopied, // resumed: a run before this one had finished it
    Failed,
    Cancelled,
};

// One target of one source: posted once it is settled.
struct FileOutcomeMessage : Fnd::MessageT<FileOutcomeMessage> {
    static constexpr std::string_view kTypeName = "QL::Engine::FileOutcomeMessage";
    fluxcore::utility::Guid batch;
    Fnd::WString source;
    Fnd::WString target;    // as planned
    Fnd::WString finalPath; // where the file stands; differs from target for keep both
    FileStatus status = FileStatus::Failed;
    Fnd::WString reason;  // one line, for a failure
    // The source's digest taken while it was copied, lower-case hex, and its algorithm ("md5",
    // "xxh128", "xxh3", "xxh64"): the verify mode's checksum, else xxh128 for the manifest of the
    // copy. Empty for what was not copied.
    std::string checksum;
    std::string checksumAlgorithm;
    std::uint32_t verifyMode = 0xFFFFFFFFu;
    // How this copy was checked: a host says per destination whether the copy was read back past
    // the page cache or only after dropping it.
    VerifiedBy verifiedBy = VerifiedBy::NotVerified;
    std::uint64_t bytes = 0;
};

enum class OutcomeStatus : std::uint8_t { Succeeded, Failed, Cancelled };

// Stable names: stored in the journal and printed by hosts.
std::string_view OutcomeStatusName(OutcomeStatus status);

// One task, once its copies and imports are over.
struct TaskOutcomeMessage : Fnd::MessageT<TaskOutcomeMessage> {
    static constexpr std::string_view kTypeName = "QL::Engine::TaskOutcomeMessage";
    fluxcore::utility::Guid batch;
    std::uint32_t task = 0; // position among the batch's tasks, from 0
    TaskKind kind = TaskKind::Copy;
    OutcomeStatus status = OutcomeStatus::Succeeded;
    Fnd::WString reason; // the first thing that went wrong
    std::uint64_t filesFailed = 0;
    std::uint64_t itemsImported = 0;
};

// The batch, last of all its messages, with its counts.
struct BatchOutcomeMessage : Fnd::MessageT<BatchOutcomeMessage>, BatchCounters {
    static constexpr std::string_view kTypeName = "QL::Engine::BatchOutcomeMessage";
    fluxcore::utility::Guid batch;
    OutcomeStatus status = OutcomeStatus::Succeeded;
    double seconds = 0;
    // Not empty when the journal could not be written: the batch ran, but a crash in it could not
    // have been resumed.
    Fnd::WString journalProblem;
};

} // namespace QL::Engine
