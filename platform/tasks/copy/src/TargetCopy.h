#pragma once
#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include "ChunkQueue.h"
#include "CopyJob.h"
#include "CopyVerifier.h"
#include "FlushedMark.h"
#include "QL/Engine/FileCopier.h"

namespace QL::Engine {

// One target of a source: its temporary, the thread that writes the chunks the reader hands it,
// the verification, and the final rename. Whatever happens, no temporary outlives it and nothing
// stands under the final name unless it is complete and, when asked, verified.
class TargetCopy {
public:
    TargetCopy(CopyTarget target, const CopyJob& job);
    ~TargetCopy();
    TargetCopy(const TargetCopy&) = delete;
    TargetCopy& operator=(const TargetCopy&) = delete;

    // Makes the folders and the temporary. False when the target failed already.
    bool Prepare();
    // Starts writing what comes through Queue().
    void Start();
    // Still wants chunks: false once the target has failed.
    bool Live() const { return !failed_.load(std::memory_order_acquire); }
    ChunkQueue& Queue() { return queue_; }
    // Waits for the outcome.
    const CopyOutcome& Finish();

private:
    void Run();
    void Write(const Chunk& chunk);
    void Conclude(const SourceEnd& end);
    bool Verify(const SourceEnd& end);
    bool Rename();
    void Trail();
    void StopTrailing();
    void Fail(std::string reason);
    void Cancel();
    void CloseWriter();
    void RemoveTemporary();

    const CopyTarget target_;
    const CopyJob& job_;
    ChunkQueue queue_;
    std::string temporary_;
    int fd_ = -1;
    bool directWrites_ = false;
    std::uint64_t written_ = 0;
    std::uint64_t flushed_ = 0;
    std::unique_ptr<CopyVerifier> verifier_;
    FlushedMark flushedMark_;
    std::thread writer_;
    std::thread trailer_;
    std::atomic<bool> failed_{false};
    CopyOutcome outcome_;
};

} // namespace QL::Engine
