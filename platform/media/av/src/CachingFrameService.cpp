#include "Av/CachingFrameService.h"

#include <sys/stat.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>

#include "Av/ClipInfo.h"
#include "Av/MediaError.h"
#include "Av/PosterFrame.h"
#include "ClipFactsText.h"
#include "FrameCache.h"
#include "Fnd/IgdHome.h"

namespace Av {
namespace {

// The clip as the cache knows it: where it is, and its size and modification time, which change
// whenever a camera or a copy rewrites it. Throws FrameUnavailable when there is no such file.
std::string SourceKey(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0)
        throw Mid::FrameUnavailable(path + ": " + std::strerror(errno));
    if (!S_ISREG(info.st_mode))
        throw Mid::FrameUnavailable(path + ": not a file");
    std::error_code ignored;
    const std::string absolute = std::filesystem::absolute(path, ignored).lexically_normal().string();
    return absolute + '\n' + std::to_string(info.st_size) + '\n' + std::to_string(info.st_mtim.tv_sec) + '.' +
           std::to_string(info.st_mtim.tv_nsec);
}

std::string FramePayload(const Mid::FrameImage& image) {
    return std::to_string(image.width) + " " + std::to_string(image.height) + "\n" +
           std::string(image.png.begin(), image.png.end());
}

std::optional<Mid::FrameImage> FrameOf(const std::string& payload) {
    Mid::FrameImage image;
    const std::size_t lineEnd = payload.find('\n');
    if (lineEnd == std::string::npos || std::sscanf(payload.c_str(), "%d %d", &image.width, &image.height) != 2 ||
        image.width < 1 || image.height < 1)
        return std::nullopt;
    image.png.assign(payload.begin() + std::ptrdiff_t(lineEnd) + 1, payload.end());
    return image;
}

Mid::ClipFacts FactsOf(const ClipInfo& info) {
    Mid::ClipFacts facts;
    facts.durationSeconds = info.durationSeconds;
    facts.frameCount = info.frameCount;
    facts.frameRateNum = info.frameRateNum;
    facts.frameRateDen = info.frameRateDen;
    facts.width = info.width;
    facts.height = info.height;
    facts.videoCodec = info.videoCodec;
    facts.audioCodec = info.audioCodec;
    facts.audioChannels = info.audioChannels;
    facts.startTimecode = info.startTimecode;
    return facts;
}

} // namespace

CachingFrameService::CachingFrameService(FrameCacheOptions options)
    : cache_(std::make_unique<FrameCache>(
          options.directory.empty() ? Fnd::IgdHomeDirectory() + "/cache/frames" : options.directory,
          options.limitBytes)) {}

CachingFrameService::~CachingFrameService() = default;

Mid::FrameImage CachingFrameService::PosterFrame(const std::string& path, int width, double atSeconds) {
    // To the millisecond: a browser asking again for "the same" time hits.
    const long long millisecond = std::llround(std::max(atSeconds, 0.0) * 1000);
    const std::string key =
        "frame\n" + SourceKey(path) + '\n' + std::to_string(width) + '\n' + std::to_string(millisecond);
    if (const std::optional<std::string> payload = cache_->Find(key))
        if (std::optional<Mid::FrameImage> image = FrameOf(*payload))
            return *image;
    ++mediaReads_;
    try {
        Mid::FrameImage image = DecodePosterFrame(path, width, double(millisecond) / 1000);
        cache_->Store(key, FramePayload(image));
        return image;
    } catch (const MediaError& error) {
        throw Mid::FrameUnavailable(error.what());
    }
}

Mid::ClipFacts CachingFrameService::Facts(const std::string& path) {
    const std::string key = "facts\n" + SourceKey(path);
    if (const std::optional<std::string> payload = cache_->Find(key))
        if (std::optional<Mid::ClipFacts> facts = ClipFactsFromText(*payload))
            return *facts;
    ++mediaReads_;
    try {
        Mid::ClipFacts facts = FactsOf(ProbeClip(path));
        cache_->Store(key, ClipFactsText(facts));
        return facts;
    } catch (const MediaError& error) {
        throw Mid::FrameUnavailable(error.what());
    }
}

std::uint64_t CachingFrameService::CacheBytes() const {
    return cache_->Bytes();
}

void InstallFrameService() {
    Mid::FrameService::Install(std::make_shared<CachingFrameService>());
}

} // namespace Av
