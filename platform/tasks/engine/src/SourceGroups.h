#pragma once
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "QL/Engine/Journal.h"

namespace QL::Engine {

// The targets of one source that one read serves: every pending copy of it in the batch with the
// same verify mode, whichever destination it goes to.
struct SourceGroup {
    Fnd::WString source;
    std::uint32_t verifyMode = 0;
    std::vector<std::size_t> files; // indexes into the batch's files, in their order
};

// Groups the pending files of copy tasks (those with a verify mode) by source and verify mode. Groups come in the order their first file
// comes, so each destination is still written in the order it was submitted. Linear in the files.
std::vector<SourceGroup>
GroupBySource(const std::vector<FileRecord>& files,
              const std::unordered_map<std::int64_t, std::uint32_t>& verifyModeOfTask);

} // namespace QL::Engine
