#pragma once
// The encoder list on FFmpeg: exporters for the formats the linked libraries can write, and the
// presets of each, read from files. A host installs it once at start-up; the task engine finds a
// preset's settings by the names its records keep.
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Av/EncoderSettings.h"
#include "Fnd/WString.h"
#include "Mid/PresetManager.h"

namespace Av {

struct EncoderPresetFolders {
    std::string user;   // $IGD_HOME/encoder-presets
    std::string system; // $IGD_SYSTEM_ENCODER_PRESETS, else the presets shipped with this build
};
EncoderPresetFolders DefaultEncoderPresetFolders();

// A list over the given folders, for a host that keeps its presets elsewhere and for tests.
std::shared_ptr<Mid::PresetManager> MakeEncoderList(EncoderPresetFolders folders);
// Installs the list over the default folders as Mid::PresetManager's instance.
void InstallEncoderList();

// The settings of the named preset of the named exporter in the installed list, container
// included; the shipped presets are searched before the user's, as a preset menu lists them.
// Nothing when either name is unknown.
std::optional<EncoderSettings> FindEncoderSettings(const Fnd::WString& exporterName, const Fnd::WString& presetName);

// What a preset of this list holds; nothing for a preset of another list.
struct EncoderPresetInfo {
    EncoderSettings settings;
    std::string path;
    bool user = false;
};
std::optional<EncoderPresetInfo> DescribeEncoderPreset(const Mid::EncoderPresetRef& preset);

// The container an exporter of this list writes; nothing for an exporter of another list.
struct ExporterInfo {
    std::string muxer;
    std::string extension; // without dot
};
std::optional<ExporterInfo> DescribeExporter(const Mid::ExporterRef& exporter);

// Whether the linked FFmpeg has the encoder or muxer of that name.
bool HasEncoder(const std::string& name);
bool HasMuxer(const std::string& name);

// A preset file the list skipped: unreadable, malformed, of a newer format, or naming an exporter
// this build does not know. Reported once per file until the file changes.
struct EncoderPresetWarning {
    std::string path;
    std::string reason;
};
// Called on the thread that lists presets, outside the list's lock. Null keeps the list silent.
void SetEncoderPresetWarningHandler(std::function<void(const EncoderPresetWarning&)> handler);

} // namespace Av
