#pragma once
#include <mutex>
#include <vector>

#include "Av/EncoderList.h"
#include "EncoderPresetFolder.h"

namespace Av {

// The exporters this FFmpeg can write, fixed at construction, and the presets of the two folders,
// read again as the files change. Safe to use from several threads.
class FileEncoderList final : public Mid::PresetManager {
public:
    explicit FileEncoderList(const EncoderPresetFolders& folders);

    const std::vector<Mid::ExporterRef>& GetEncoderList() override { return exporters_; }
    // A null exporter, or one of another list, has no presets.
    void LoadPresets(const Mid::ExporterRef& exporter, std::vector<Mid::EncoderPresetRef>& user,
                     std::vector<Mid::EncoderPresetRef>& system, int flags) override;

private:
    std::vector<Mid::ExporterRef> exporters_;
    std::mutex mutex_;
    EncoderPresetFolder user_;
    EncoderPresetFolder system_;
};

} // namespace Av
