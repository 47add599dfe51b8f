#pragma once
#include <cstdint>
#include <functional>
#include <vector>

#include "Fnd/WString.h"

namespace IGD {

// Answers whether the sources fit on every destination; on false names the destination that is
// short and by how much, as QL::IngestUtils::EnoughSpaceForCopy does.
using SpaceTest = std::function<bool(const std::vector<Fnd::WString>& sourcePaths,
                                     const std::vector<Fnd::WString>& basePaths, Fnd::WString& failingPath,
                                     std::uint64_t& missingBytes)>;

// When a destination is short of space, asks whether to retry (after the user has made room),
// cancel, or continue at the user's own risk, for as long as the user retries. An empty
// destination is told as such and answers false.
bool CheckDiskSpace(const std::vector<Fnd::WString>& sourcePaths, const std::vector<Fnd::WString>& basePaths);

// The same with another measure of the space, for a test to script the disk.
bool CheckDiskSpace(const std::vector<Fnd::WString>& sourcePaths, const std::vector<Fnd::WString>& basePaths,
                    const SpaceTest& enoughSpace);

} // namespace IGD
