#include "ProbeCommand.h"

#include <cstdio>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <system_error>

#include "ExitCodes.h"
#include "Fnd/AtomicFile.h"
#include "Mid/FrameService.h"
#include "NumberOption.h"
#include "OutputFormat.h"

namespace igd {
namespace {

struct ProbeOptions {
    std::string path;
    bool json = false;
    std::string thumbnail;
    int width = 160;
    double atSeconds = 0;
};

struct Thumbnail {
    std::string path;
    int width = 0;
    int height = 0;
};

std::string Number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", value);
    return text;
}

std::string RateText(const Mid::ClipFacts& facts) {
    const std::string fps = Number(double(facts.frameRateNum) / facts.frameRateDen) + " fps";
    return facts.frameRateDen == 1 ? fps
                                   : fps + " (" + std::to_string(facts.frameRateNum) + "/" +
                                         std::to_string(facts.frameRateDen) + ")";
}

void PrintText(const ProbeOptions& options, const Mid::ClipFacts& facts, const std::optional<Thumbnail>& thumbnail) {
    const auto row = [](const char* name, const std::string& value) {
        std::cout << "  " << name << std::string(12 - std::string(name).size(), ' ') << value << "\n";
    };
    std::cout << options.path << "\n";
    row("duration", Number(facts.durationSeconds) + " s" +
                        (facts.frameCount > 0 ? " (" + std::to_string(facts.frameCount) + " frames)" : ""));
    if (!facts.videoCodec.empty()) {
        row("video", facts.videoCodec);
        row("size", std::to_string(facts.width) + " x " + std::to_string(facts.height));
        row("frame rate", RateText(facts));
    } else {
        row("video", "none");
    }
    row("audio", facts.audioCodec.empty() ? "none"
                                          : facts.audioCodec + ", " + std::to_string(facts.audioChannels) +
                                                (facts.audioChannels == 1 ? " channel" : " channels"));
    row("timecode", facts.startTimecode.empty() ? "none recorded" : facts.startTimecode);
    if (thumbnail)
        row("thumbnail", thumbnail->path + " (" + std::to_string(thumbnail->width) + " x " +
                             std::to_string(thumbnail->height) + ")");
}

void PrintJson(const ProbeOptions& options, const Mid::ClipFacts& facts, const std::optional<Thumbnail>& thumbnail) {
    std::cout << "{\"path\": " << JsonString(options.path) << ", \"durationSeconds\": " << Number(facts.durationSeconds)
              << ", \"frameCount\": " << facts.frameCount << ", \"frameRate\": \"" << facts.frameRateNum << "/"
              << facts.frameRateDen << "\", \"width\": " << facts.width << ", \"height\": " << facts.height
              << ", \"videoCodec\": " << JsonString(facts.videoCodec)
              << ", \"audioCodec\": " << JsonString(facts.audioCodec) << ", \"audioChannels\": " << facts.audioChannels
              << ", \"startTimecode\": " << JsonString(facts.startTimecode);
    if (thumbnail)
        std::cout << ", \"thumbnail\": {\"path\": " << JsonString(thumbnail->path) << ", \"width\": " << thumbnail->width
                  << ", \"height\": " << thumbnail->height << "}";
    std::cout << "}\n";
}

int RunProbe(const ProbeOptions& options) {
    Mid::FrameService& frames = Mid::FrameService::GetInstance();
    Mid::ClipFacts facts;
    std::optional<Thumbnail> thumbnail;
    try {
        facts = frames.Facts(options.path);
        if (!options.thumbnail.empty()) {
            const Mid::FrameImage image = frames.PosterFrame(options.path, options.width, options.atSeconds);
            Fnd::WriteFileAtomically(options.thumbnail,
                                     std::string_view(reinterpret_cast<const char*>(image.png.data()), image.png.size()));
            thumbnail = Thumbnail{options.thumbnail, image.width, image.height};
        }
    } catch (const Mid::FrameUnavailable& error) {
        std::cerr << "igd probe: " << error.what() << "\n";
        return kExitBadInput;
    } catch (const std::system_error& error) {
        std::cerr << "igd probe: the thumbnail cannot be written: " << error.what() << "\n";
        return kExitFailure;
    }
    if (options.json)
        PrintJson(options, facts, thumbnail);
    else
        PrintText(options, facts, thumbnail);
    return kExitSuccess;
}

} // namespace

void RegisterProbeCommand(CLI::App& app, CommandTable& table) {
    auto options = std::make_shared<ProbeOptions>();
    CLI::App* probe = app.add_subcommand("probe", "what a clip holds: duration, rate, size, codecs, timecode");
    probe->add_option("file", options->path, "the clip")->required();
    probe->add_flag("--json", options->json, "print the facts as JSON");
    CLI::Option* thumbnail =
        probe->add_option("--thumbnail", options->thumbnail, "write the poster frame as PNG to OUT")->option_text("OUT");
    probe->add_option("--width", options->width, "of the poster frame in pixels (default 160)")
        ->check(WholeNumberIn(1, 8192))
        ->needs(thumbnail);
    probe->add_option("--at", options->atSeconds, "the poster frame's time in seconds from the start (default 0)")
        ->check(CLI::NonNegativeNumber)
        ->needs(thumbnail);
    table.Add(probe, [options] { return RunProbe(*options); });
}

} // namespace igd
