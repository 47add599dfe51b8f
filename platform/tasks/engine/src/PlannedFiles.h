#pragma once
#include <cstdint>
#include <vector>

#include "QL/Engine/Journal.h"

namespace QL::Engine {

// A pending row for each copy entry of the task, in unit and entry order, and for each file a
// transcode or stitch writes (unit: its clip); none for other kinds.
std::vector<FileRecord> PlannedFiles(const TaskRecord& record, std::int64_t task);

} // namespace QL::Engine
