#include <utility>

#include "QL/Engine/CopyBackend.h"

namespace QL::Engine {
namespace {

class FileCopierBackend : public CopyBackend {
public:
    FileCopierBackend(std::size_t chunkBytes, CopyHooks hooks) : copier_(chunkBytes, std::move(hooks)) {}

    std::vector<CopyOutcome> CopyFile(const std::string& source, const std::vector<CopyTarget>& targets,
                                      std::uint32_t verifyMode, CopyControl& control,
                                      const ProgressFunction& progress) override {
        return copier_.CopyFile(source, targets, verifyMode, control, progress);
    }

    std::vector<CopyOutcome> CopyFolder(const std::string& source,
                                        const std::vector<CopyTarget>& targets) override {
        return copier_.CopyFolder(source, targets);
    }

private:
    FileCopier copier_;
};

} // namespace

std::shared_ptr<CopyBackend> MakeFileCopierBackend(std::size_t chunkBytes, CopyHooks hooks) {
    return std::make_shared<FileCopierBackend>(chunkBytes, std::move(hooks));
}

} // namespace QL::Engine
