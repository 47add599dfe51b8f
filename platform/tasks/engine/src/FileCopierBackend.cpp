#include <algorithm>
#include <utility>

#include "QL/Engine/CopyBackend.h"

namespace QL::Engine {
namespace {

class FileCopierBackend : public CopyBackend {
public:
    FileCopierBackend(std::size_t chunkBytes, CopyHooks hooks)
        : files_(chunkBytes, hooks), groups_(hooks),
          largestGrouped_(std::min<std::uint64_t>(chunkBytes, GroupCopier::kLargestFile)) {}

    std::uint64_t LargestGroupedFile() const override { return largestGrouped_; }

    std::vector<CopyOutcome> CopyFile(const SourceCopy& copy, CopyControl& control,
                                      const ProgressFunction& progress) override {
        return files_.CopyFile(copy.source, copy.targets, copy.verifyMode, control, progress,
                               copy.expected ? &*copy.expected : nullptr);
    }

    std::vector<std::vector<CopyOutcome>> CopyGroup(const std::vector<SourceCopy>& group, CopyControl& control,
                                                    const GroupProgressFunction& progress) override {
        return groups_.CopyGroup(group, control, progress);
    }

    std::vector<CopyOutcome> CopyFolder(const std::string& source,
                                        const std::vector<CopyTarget>& targets) override {
        return files_.CopyFolder(source, targets);
    }

    void BatchEnded() override { groups_.ReleaseBuffers(); }

private:
    FileCopier files_;
    GroupCopier groups_;
    std::uint64_t largestGrouped_;
};

} // namespace

std::shared_ptr<CopyBackend> MakeFileCopierBackend(std::size_t chunkBytes, CopyHooks hooks) {
    return std::make_shared<FileCopierBackend>(chunkBytes, std::move(hooks));
}

} // namespace QL::Engine
