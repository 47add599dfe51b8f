#pragma once
#include <functional>
#include <string>
#include <vector>

namespace QL::Engine {

// Keeps other igd processes out of the destinations a process writes to, for as long as it holds
// them: an ingest takes them before it looks for existing targets, so that a second ingest into
// the same folder plans against what the first has written instead of racing it, and a resume
// takes the folders of its batch. Each folder is locked exclusively and the folders above it
// shared, so a folder and one inside it exclude each other while folders side by side do not.
// Locks are taken in path order (no two processes wait for each other) and the system drops them
// when the process ends however it ends. Advisory: only igd looks at them. Within one process a
// folder is held once, however many hold it.
class DestinationLocks {
public:
    DestinationLocks() = default;
    ~DestinationLocks();
    DestinationLocks(DestinationLocks&& other) noexcept;
    DestinationLocks& operator=(DestinationLocks&& other) noexcept;
    DestinationLocks(const DestinationLocks&) = delete;
    DestinationLocks& operator=(const DestinationLocks&) = delete;

    // Takes the folders, absolute and without links; one that does not exist yet is taken at its
    // nearest existing ancestor. When one is held elsewhere, waiting tells it the folder first.
    static DestinationLocks Take(const std::vector<std::string>& folders,
                                 const std::function<void(const std::string& busyFolder)>& waiting);

    // The folder that holds every target, for a resume's batch: their longest common folder.
    static std::string CommonFolder(const std::vector<std::string>& targets);

private:
    void Release();

    std::vector<std::string> held_;
};

} // namespace QL::Engine
