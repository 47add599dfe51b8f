#pragma once
#include <array>
#include <memory>
#include <string>

#include "QL/PresetService.h"

namespace QL {

class PresetRegistry;

// Where presets live: <userRoot>/rename, <userRoot>/metadata and the same under systemRoot.
struct PresetFolders {
    std::string userRoot;
    std::string systemRoot;
};

// $IGD_HOME/presets for the user; $IGD_SYSTEM_PRESETS, else the presets shipped with this build.
PresetFolders DefaultPresetFolders();
// The folder of one category under a root.
std::string CategoryFolder(const std::string& root, _QLPresetCategory category);

// The preset service on files. Every manager it makes for a category shares one registry, so
// they all hand out the same preset objects.
class FilePresetService final : public IPresetService {
public:
    explicit FilePresetService(PresetFolders folders);
    ~FilePresetService() override;

    Fnd::InterfaceRef<IQLPresetManager> InstantiateManager(_QLPresetCategory category) override;
    const PresetFolders& Folders() const { return folders_; }

private:
    PresetFolders folders_;
    std::array<std::shared_ptr<PresetRegistry>, 2> registries_;
};

// Installs a FilePresetService on DefaultPresetFolders as the process's preset service.
void InstallFilePresetService();

} // namespace QL
