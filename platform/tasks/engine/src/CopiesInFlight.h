#pragma once
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "QL/Engine/FileCopier.h"

namespace QL::Engine {

// Runs a few copies of a batch at once, each on a thread of its own, and hands their outcomes
// back in the order they were started, so that journal, counters and messages follow the plan's
// order whichever copy ends first. One copy at a time leaves the processor idle while a file's
// last read-backs drain and its next file opens; with two, one file's reading overlaps the
// other's checking.
class CopiesInFlight {
public:
    using Work = std::function<std::vector<CopyOutcome>()>;

    explicit CopiesInFlight(std::size_t width);
    // Waits for the copies still running; their outcomes are dropped.
    ~CopiesInFlight();
    CopiesInFlight(const CopiesInFlight&) = delete;
    CopiesInFlight& operator=(const CopiesInFlight&) = delete;

    // Waits while width copies are running, then starts work. An exception of work becomes its
    // outcome: every target failed with the exception's text, for targetCount targets.
    void Start(Work work, std::size_t targetCount);
    // Started and not yet taken.
    bool Empty() const;
    // Whether the oldest copy not yet taken has finished.
    bool OldestFinished() const;
    // The outcomes of the oldest copy not yet taken, waiting for it to finish. Not on an empty one.
    std::vector<CopyOutcome> TakeOldest();

private:
    struct Slot {
        Work work;
        std::size_t targetCount = 0;
        bool finished = false;
        std::vector<CopyOutcome> outcomes;
    };

    void Run();

    const std::size_t width_;
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::shared_ptr<Slot>> started_; // in order of Start, until taken
    std::deque<std::shared_ptr<Slot>> waiting_; // started, not yet picked up by a thread
    std::size_t running_ = 0;                   // started and not finished
    bool stopping_ = false;
    std::vector<std::thread> threads_;
};

} // namespace QL::Engine
