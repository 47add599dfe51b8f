#pragma once
#include <sys/types.h>

#include <mutex>
#include <string>
#include <unordered_map>

namespace QL::Engine {

// The folders a run writes into, as they were when it began. A destination that disappears while
// the run goes on (a backup drive unmounted, its folder deleted) must not be made again on the
// disk underneath: the copies would land in an empty mount point and pass for backups. So each
// folder is known by its device and inode, and only folders below one still standing as it was
// are ever created. Safe from several threads.
class DestinationFolders {
public:
    // At the start of a run, for every folder a target goes into: notes the nearest folder of it
    // that exists now. Only what lies below may be created later.
    void Note(const std::string& folder);
    // A folder copies went into before the run began (a resumed batch): noted as it stands, or
    // as gone when it is no longer there, so that nothing is made again in its place.
    void Require(const std::string& folder);

    // Makes sure the folder stands, creating what is missing below a noted folder. Empty, or the
    // reason it cannot: "destination is gone" when a folder the run knew has gone or is another
    // one now, else "could not create the folder: ...".
    std::string Ensure(const std::string& folder);

    // Whether a folder the run knew on the way to this one has gone or changed.
    bool Gone(const std::string& folder);

private:
    struct Identity {
        dev_t device = 0;
        ino_t inode = 0;
    };
    enum class Standing { Known, Gone, Unknown };

    Standing Check(const std::string& folder) const;
    std::string EnsureLocked(const std::string& folder);

    std::mutex mutex_;
    std::unordered_map<std::string, Identity> known_;
};

} // namespace QL::Engine
