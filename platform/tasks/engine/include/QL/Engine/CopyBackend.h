#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "QL/Engine/CopyControl.h"
#include "QL/Engine/FileCopier.h"
#include "QL/Engine/GroupCopier.h"

namespace QL::Engine {

// What the scheduler copies through. The service uses the file copier for large files and the
// group copier for small ones; a test may wrap them to count reads or to change the disk between
// two copies.
class CopyBackend {
public:
    virtual ~CopyBackend() = default;
    virtual std::vector<CopyOutcome> CopyFile(const SourceCopy& copy, CopyControl& control,
                                              const ProgressFunction& progress) = 0;
    // Sources of at most LargestGroupedFile bytes, together.
    virtual std::vector<std::vector<CopyOutcome>> CopyGroup(const std::vector<SourceCopy>& group,
                                                            CopyControl& control,
                                                            const GroupProgressFunction& progress) = 0;
    virtual std::vector<CopyOutcome> CopyFolder(const std::string& source,
                                                const std::vector<CopyTarget>& targets) = 0;
    // Files up to this size are copied in groups; larger ones one by one.
    virtual std::uint64_t LargestGroupedFile() const { return GroupCopier::kLargestFile; }
    // A batch is over: memory kept for copying can go.
    virtual void BatchEnded() {}
};

// Files that fit in one chunk (up to GroupCopier::kLargestFile) are copied in groups.
std::shared_ptr<CopyBackend> MakeFileCopierBackend(std::size_t chunkBytes = 8u << 20, CopyHooks hooks = {});

} // namespace QL::Engine
