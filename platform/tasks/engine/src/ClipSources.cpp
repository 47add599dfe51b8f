#include "ClipSources.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "Browse/ProviderRegistry.h"
#include "Fnd/PathUtils.h"

namespace QL::Engine {
namespace {

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
    return text;
}

std::string ExtensionOf(const std::string& path) {
    const std::string name = Fnd::PathUtils::FileNameOf(path);
    const auto dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : Lower(name.substr(dot + 1));
}

// The folder a file lies in, lower case: cameras keep proxies and sound in folders of their own.
std::string FolderNameOf(const std::string& path) {
    return Lower(Fnd::PathUtils::FileNameOf(Fnd::PathUtils::FolderOf(path)));
}

bool IsPictureOrSound(const std::string& path) {
    static constexpr std::array<std::string_view, 6> kMedia{"mp4", "mov", "mxf", "mts", "m2ts", "avi"};
    const std::string extension = ExtensionOf(path);
    return std::find(kMedia.begin(), kMedia.end(), extension) != kMedia.end();
}

bool IsProxy(const std::string& path) {
    const std::string folder = FolderNameOf(path);
    return folder == "sub" || folder == "proxy";
}

std::optional<double> SecondsOf(fluxmediatypes::Time time) {
    if (time == fluxmediatypes::kTime_Invalid)
        return std::nullopt;
    return double(time) / double(fluxmediatypes::kTicksPerSecond);
}

} // namespace

Av::SourceClip ClipSourceOf(const IngestTask::TranscodeClipEntry& entry) {
    Av::SourceClip source;
    source.inSeconds = SecondsOf(entry.inPoint);
    source.outSeconds = SecondsOf(entry.outPoint);

    const Browse::CardProvider* provider = nullptr;
    Fnd::WString cardRoot;
    Browse::CardClip clip;
    if (!Browse::ProviderRegistry::FindClipOfFile(entry.path, provider, cardRoot, clip)) {
        source.segments.push_back(Av::ClipSegment{Fnd::ToUTF8(entry.path), {}});
        return source;
    }
    for (const Fnd::WString& file : clip.files) {
        const std::string path = Fnd::ToUTF8(file);
        if (!IsPictureOrSound(path) || IsProxy(path))
            continue;
        // A P2 clip keeps each channel's sound in a file of its own under AUDIO, after its picture.
        if (FolderNameOf(path) == "audio") {
            if (!source.segments.empty())
                source.segments.back().audio.push_back(path);
            continue;
        }
        source.segments.push_back(Av::ClipSegment{path, {}});
    }
    if (source.segments.empty())
        source.segments.push_back(Av::ClipSegment{Fnd::ToUTF8(entry.path), {}});
    return source;
}

} // namespace QL::Engine
