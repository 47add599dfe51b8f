#pragma once
#include <vector>

#include "Fnd/WString.h"
#include "QL/Engine/TaskRecord.h"

namespace QL::Engine {

// One file a transcode or stitch task writes: from which clip (the first, for a stitch) to where.
struct TranscodeTarget {
    std::uint32_t clip = 0; // index among the record's clips
    Fnd::WString source;
    Fnd::WString target;
};

// The files of a transcode task, one for each clip that is a file (a folder, given for a folder
// with no content, has nothing to transcode), named by the clip's name or else its file's stem;
// of a stitch, the one file of its name. The extension is the preset's container's; a preset not in
// the encoder list leaves it off, and the task fails saying so.
std::vector<TranscodeTarget> TranscodeTargets(TaskKind kind, const TranscodeTaskRecord& record);

} // namespace QL::Engine
