#include "EncodersCommand.h"

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "Av/EncoderList.h"
#include "ExitCodes.h"
#include "Fnd/WString.h"
#include "OutputFormat.h"

namespace igd {
namespace {

struct PresetRow {
    std::string name;
    Av::EncoderPresetInfo info;
};

struct ExporterRow {
    std::string name;
    std::string container;
    std::string extension;
    std::vector<PresetRow> presets; // shipped first, then the user's
};

std::string SizeRule(const Av::EncoderSettings& settings) {
    if (settings.width == 0 || settings.height == 0)
        return "source";
    return std::to_string(settings.width) + "x" + std::to_string(settings.height);
}

std::string RateRule(const Av::EncoderSettings& settings) {
    if (settings.frameRateNum == 0 || settings.frameRateDen == 0)
        return "source";
    return std::to_string(settings.frameRateNum) + "/" + std::to_string(settings.frameRateDen);
}

std::string SampleRateRule(const Av::EncoderSettings& settings) {
    return settings.audioSampleRate == 0 ? "source" : std::to_string(settings.audioSampleRate);
}

std::vector<ExporterRow> Gather() {
    Mid::PresetManager& manager = Mid::PresetManager::GetInstance();
    std::vector<ExporterRow> rows;
    for (const Mid::ExporterRef& exporter : manager.GetEncoderList()) {
        ExporterRow row;
        row.name = Fnd::ToDisplayUTF8(exporter->GetDisplayName());
        if (const auto info = Av::DescribeExporter(exporter)) {
            row.container = info->muxer;
            row.extension = info->extension;
        }
        std::vector<Mid::EncoderPresetRef> user;
        std::vector<Mid::EncoderPresetRef> system;
        manager.LoadPresets(exporter, user, system, 0);
        for (const auto* presets : {&system, &user})
            for (const Mid::EncoderPresetRef& preset : *presets)
                if (auto info = Av::DescribeEncoderPreset(preset))
                    row.presets.push_back({Fnd::ToDisplayUTF8(preset->GetName()), std::move(*info)});
        rows.push_back(std::move(row));
    }
    return rows;
}

void PrintText(const std::vector<ExporterRow>& rows) {
    if (rows.empty())
        std::cout << "No exporters: the linked FFmpeg has none of the encoders igd transcodes with\n";
    for (const ExporterRow& row : rows) {
        std::cout << row.name << (row.extension.empty() ? "" : "  (." + row.extension + ")") << "\n";
        if (row.presets.empty())
            std::cout << "    no presets\n";
        for (const PresetRow& preset : row.presets) {
            const Av::EncoderSettings& s = preset.info.settings;
            std::cout << "    " << preset.name << (preset.info.user ? "  [user]" : "") << "\n        "
                      << s.videoEncoder << (s.profile.empty() ? "" : " " + s.profile) << ", size " << SizeRule(s)
                      << ", rate " << RateRule(s) << ", audio " << (s.audioEncoder.empty() ? "none" : s.audioEncoder)
                      << (Av::HasEncoder(s.videoEncoder) ? "" : "  (this build has no " + s.videoEncoder + ")")
                      << "\n";
        }
    }
}

void PrintJson(const std::vector<ExporterRow>& rows) {
    std::cout << "[";
    for (std::size_t e = 0; e < rows.size(); ++e) {
        const ExporterRow& row = rows[e];
        std::cout << (e ? ",\n " : "\n ") << "{\"exporter\": " << JsonString(row.name)
                  << ", \"container\": " << JsonString(row.container) << ", \"extension\": " << JsonString(row.extension)
                  << ", \"presets\": [";
        for (std::size_t p = 0; p < row.presets.size(); ++p) {
            const Av::EncoderSettings& s = row.presets[p].info.settings;
            std::cout << (p ? ",\n   " : "\n   ") << "{\"name\": " << JsonString(row.presets[p].name)
                      << ", \"source\": " << (row.presets[p].info.user ? "\"user\"" : "\"system\"")
                      << ", \"path\": " << JsonString(row.presets[p].info.path)
                      << ", \"videoEncoder\": " << JsonString(s.videoEncoder)
                      << ", \"encoderAvailable\": " << (Av::HasEncoder(s.videoEncoder) ? "true" : "false")
                      << ", \"profile\": " << JsonString(s.profile) << ", \"pixelFormat\": " << JsonString(s.pixelFormat)
                      << ", \"videoBitRate\": " << s.videoBitRate << ", \"size\": " << JsonString(SizeRule(s))
                      << ", \"frameRate\": " << JsonString(RateRule(s))
                      << ", \"audioEncoder\": " << JsonString(s.audioEncoder)
                      << ", \"audioBitRate\": " << s.audioBitRate
                      << ", \"sampleRate\": " << JsonString(SampleRateRule(s)) << "}";
        }
        std::cout << (row.presets.empty() ? "]}" : "\n ]}");
    }
    std::cout << (rows.empty() ? "]\n" : "\n]\n");
}

} // namespace

void RegisterEncodersCommand(CLI::App& app, CommandTable& table) {
    auto json = std::make_shared<bool>(false);
    CLI::App* encoders = app.add_subcommand(
        "encoders", "list the formats this build can transcode to, with their shipped and user presets");
    encoders->add_flag("--json", *json, "print the exporters and presets as JSON");
    table.Add(encoders, [json] {
        const std::vector<ExporterRow> rows = Gather();
        if (*json)
            PrintJson(rows);
        else
            PrintText(rows);
        return kExitSuccess;
    });
}

} // namespace igd
