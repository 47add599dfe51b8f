#include "Av/EncoderList.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include "EncoderPresetObject.h"
#include "Exporters.h"
#include "FileEncoderList.h"
#include "Fnd/IgdHome.h"

#if !defined(IGD_SYSTEM_ENCODER_PRESETS_DIR) || !defined(IGD_INSTALLED_ENCODER_PRESETS_DIR)
#error "the build names the folders of shipped encoder presets in IGD_SYSTEM_ENCODER_PRESETS_DIR and IGD_INSTALLED_ENCODER_PRESETS_DIR"
#endif

namespace Av {
namespace {

// An installed library finds the shipped presets beside itself (<prefix>/lib/../share/igd/...),
// wherever the prefix was moved; a library in a build tree reads them from the source tree.
std::string ShippedPresetsFolder() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&DefaultEncoderPresetFolders), &info) != 0 && info.dli_fname != nullptr) {
        std::error_code error;
        const std::filesystem::path library = std::filesystem::canonical(info.dli_fname, error);
        if (!error) {
            const std::filesystem::path installed =
                library.parent_path().parent_path() / IGD_INSTALLED_ENCODER_PRESETS_DIR;
            if (std::filesystem::is_directory(installed, error))
                return installed.string();
        }
    }
    return IGD_SYSTEM_ENCODER_PRESETS_DIR;
}

} // namespace

EncoderPresetFolders DefaultEncoderPresetFolders() {
    EncoderPresetFolders folders;
    folders.user = Fnd::IgdHomeDirectory() + "/encoder-presets";
    const char* system = std::getenv("IGD_SYSTEM_ENCODER_PRESETS");
    folders.system = system && *system ? system : ShippedPresetsFolder();
    return folders;
}

std::shared_ptr<Mid::PresetManager> MakeEncoderList(EncoderPresetFolders folders) {
    return std::make_shared<FileEncoderList>(folders);
}

void InstallEncoderList() {
    Mid::PresetManager::Install(MakeEncoderList(DefaultEncoderPresetFolders()));
}

std::optional<EncoderSettings> FindEncoderSettings(const Fnd::WString& exporterName,
                                                   const Fnd::WString& presetName) {
    Mid::PresetManager& manager = Mid::PresetManager::GetInstance();
    for (const Mid::ExporterRef& exporter : manager.GetEncoderList()) {
        if (!exporter || exporter->GetDisplayName() != exporterName)
            continue;
        std::vector<Mid::EncoderPresetRef> user;
        std::vector<Mid::EncoderPresetRef> system;
        manager.LoadPresets(exporter, user, system, 0);
        for (const auto* presets : {&system, &user})
            for (const Mid::EncoderPresetRef& preset : *presets)
                if (preset && preset->GetName() == presetName)
                    if (auto info = DescribeEncoderPreset(preset))
                        return std::move(info->settings);
        return std::nullopt;
    }
    return std::nullopt;
}

std::optional<EncoderPresetInfo> DescribeEncoderPreset(const Mid::EncoderPresetRef& preset) {
    const auto own = EncoderPresetObject::From(preset);
    if (!own)
        return std::nullopt;
    return own->Info();
}

std::optional<ExporterInfo> DescribeExporter(const Mid::ExporterRef& exporter) {
    const auto own = ExporterModule::From(exporter);
    if (!own)
        return std::nullopt;
    return ExporterInfo{own->Definition().muxer, own->Definition().extension};
}

bool HasEncoder(const std::string& name) {
    return !name.empty() && avcodec_find_encoder_by_name(name.c_str()) != nullptr;
}

bool HasMuxer(const std::string& name) {
    return !name.empty() && av_guess_format(name.c_str(), nullptr, nullptr) != nullptr;
}

} // namespace Av
