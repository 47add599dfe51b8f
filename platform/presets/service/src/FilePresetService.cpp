#include "QL/FilePresetService.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <utility>

#include "FilePresetManager.h"
#include "Fnd/IgdHome.h"
#include "PresetRegistry.h"

#if !defined(IGD_SYSTEM_PRESETS_DIR) || !defined(IGD_INSTALLED_PRESETS_DIR)
#error "the build names the folders of shipped presets in IGD_SYSTEM_PRESETS_DIR and IGD_INSTALLED_PRESETS_DIR"
#endif

namespace QL {
namespace {

// An installed library finds the shipped presets beside itself (<prefix>/lib/.. /share/igd/presets),
// wherever the prefix was moved; a library in a build tree reads them from the source tree.
std::string ShippedPresetsFolder() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&DefaultPresetFolders), &info) != 0 && info.dli_fname != nullptr) {
        std::error_code error;
        const std::filesystem::path library = std::filesystem::canonical(info.dli_fname, error);
        if (!error) {
            const std::filesystem::path installed = library.parent_path().parent_path() / IGD_INSTALLED_PRESETS_DIR;
            if (std::filesystem::is_directory(installed, error))
                return installed.string();
        }
    }
    return IGD_SYSTEM_PRESETS_DIR;
}

} // namespace

PresetFolders DefaultPresetFolders() {
    PresetFolders folders;
    folders.userRoot = Fnd::IgdHomeDirectory() + "/presets";
    const char* system = std::getenv("IGD_SYSTEM_PRESETS");
    folders.systemRoot = system && *system ? system : ShippedPresetsFolder();
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
