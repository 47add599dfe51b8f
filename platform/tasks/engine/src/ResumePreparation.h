#pragma once
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "RunJournal.h"

namespace QL::Engine {

struct ResumeFindings {
    std::vector<std::size_t> alreadyCopied; // complete under their final names; not copied again
    std::vector<std::size_t> changed;       // verified once, since changed on disk: failed
};

// Brings the files of a batch that a crash interrupted back to a state the copy can go on from:
// the temporaries the engine may have left beside any of its files are removed; a file verified under its final name that is
// still there with its size is kept; a target that a copy finished just before the crash (same
// size and time as its source, and the same content as far as the verify mode checks) is taken
// as verified; everything else is pending again. Written to the journal before it returns.
ResumeFindings PrepareForResume(std::vector<FileRecord>& files,
                                const std::unordered_map<std::int64_t, std::uint32_t>& verifyModeOfTask,
                                RunJournal& journal);

} // namespace QL::Engine
