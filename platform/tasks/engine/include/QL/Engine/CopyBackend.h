#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "QL/Engine/CopyControl.h"
#include "QL/Engine/FileCopier.h"

namespace QL::Engine {

// What the scheduler copies through. The service uses the file copier; a test may wrap it to
// count reads or to change the disk between two files.
class CopyBackend {
public:
    virtual ~CopyBackend() = default;
    virtual std::vector<CopyOutcome> CopyFile(const std::string& source,
                                              const std::vector<CopyTarget>& targets,
                                              std::uint32_t verifyMode, CopyControl& control,
                                              const ProgressFunction& progress) = 0;
    virtual std::vector<CopyOutcome> CopyFolder(const std::string& source,
                                                const std::vector<CopyTarget>& targets) = 0;
};

std::shared_ptr<CopyBackend> MakeFileCopierBackend(std::size_t chunkBytes = 8u << 20, CopyHooks hooks = {});

} // namespace QL::Engine
