#include "QL/FilePresetService.h"

#include <cstdlib>
#include <utility>

#include "FilePresetManager.h"
#include "Fnd/IgdHome.h"
#include "PresetRegistry.h"

#ifndef IGD_SYSTEM_PRESETS_DIR
#error "the build names the folder of shipped presets in IGD_SYSTEM_PRESETS_DIR"
#endif

namespace QL {

PresetFolders DefaultPresetFolders() {
    PresetFolders folders;
    folders.userRoot = Fnd::IgdHomeDirectory() + "/presets";
    const char* system = std::getenv("IGD_SYSTEM_PRESETS");
    folders.systemRoot = system && *system ? system : IGD_SYSTEM_PRESETS_DIR;
    return folders;
}

std::string CategoryFolder(const std::string& root, _QLPresetCategory category) {
    std::string folder = root;
    while (folder.size() > 1 && folder.back() == '/')
        folder.pop_back();
    return folder + (category == kQLPresetCategoryMetadata ? "/metadata" : "/rename");
}

FilePresetService::FilePresetService(PresetFolders folders) : folders_(std::move(folders)) {
    for (auto category : {kQLPresetCategoryRename, kQLPresetCategoryMetadata})
        registries_[category] =
            std::make_shared<PresetRegistry>(category, CategoryFolder(folders_.userRoot, category),
                                             CategoryFolder(folders_.systemRoot, category));
}

FilePresetService::~FilePresetService() = default;

Fnd::InterfaceRef<IQLPresetManager> FilePresetService::InstantiateManager(_QLPresetCategory category) {
    if (category != kQLPresetCategoryRename && category != kQLPresetCategoryMetadata)
        return nullptr;
    return Fnd::InterfaceRef<IQLPresetManager>(new FilePresetManager(registries_[category]));
}

void InstallFilePresetService() {
    SetPresetService(std::make_shared<FilePresetService>(DefaultPresetFolders()));
}

} // namespace QL
