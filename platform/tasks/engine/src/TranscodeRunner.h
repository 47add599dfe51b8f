#pragma once
#include <string>
#include <unordered_map>
#include <vector>

#include "BatchRun.h"
#include "QL/Engine/BatchCounters.h"
#include "RunJournal.h"
#include "TranscodeJobs.h"

namespace QL::Engine {

// The transcode half of a batch, after its copies: each job decoded once into the temporaries of
// its outputs, each output opened again and checked, then flushed and given its name (a name taken
// meanwhile keeps both). Every output is journalled with its temporary before the work starts, so
// that resume removes what a crash left. One output's failure leaves the others alone.
class TranscodeRunner {
public:
    TranscodeRunner(BatchRun& run, RunJournal& journal, BatchCounters& counters)
        : run_(run), journal_(journal), counters_(counters) {}

    void RunAll();

private:
    void Run(const TranscodeJob& job);
    // Settles the output as failed, or cancelled, removing its temporary; journals nothing.
    void Settle(std::size_t output, FileState state, const std::string& reason);
    void Finish(std::size_t output);
    void Report(const std::vector<std::size_t>& outputs);

    BatchRun& run_;
    RunJournal& journal_;
    BatchCounters& counters_;
    std::unordered_map<std::int64_t, const TranscodeTaskRecord*> records_; // by task id
};

} // namespace QL::Engine
