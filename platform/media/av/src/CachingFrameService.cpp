#include "Av/CachingFrameService.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <functional>
#include <future>
#include <map>
#include <mutex>

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

// The picture's size is read from the PNG's own header: the cache keeps the PNG alone.
std::optional<Mid::FrameImage> FrameOf(std::vector<std::uint8_t>&& png) {
    static constexpr std::uint8_t kSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    if (png.size() < 24 || !std::equal(std::begin(kSignature), std::end(kSignature), png.begin()) ||
        !std::equal(png.begin() + 12, png.begin() + 16, "IHDR"))
        return std::nullopt;
    const auto bigEndian = [&png](std::size_t at) {
        return int(png[at]) << 24 | int(png[at + 1]) << 16 | int(png[at + 2]) << 8 | int(png[at + 3]);
    };
    const int width = bigEndian(16);
    const int height = bigEndian(20);
    if (width < 1 || height < 1)
        return std::nullopt;
    return Mid::FrameImage{std::move(png), width, height};
}

Mid::ClipFacts FactsOf(const ClipInfo& info) {
    return Mid::ClipFacts{.durationSeconds = info.durationSeconds,
                          .frameCount = info.frameCount,
                          .frameRateNum = info.frameRateNum,
                          .frameRateDen = info.frameRateDen,
                          .width = info.width,
                          .height = info.height,
                          .videoCodec = info.videoCodec,
                          .audioCodec = info.audioCodec,
                          .audioChannels = info.audioChannels,
                          .startTimecode = info.startTimecode};
}

} // namespace

// A browser asks for thousands of clips from several threads, and often for one clip twice at
// once (a list and its icons); a card of damaged clips would be decoded again at every scroll.
struct CachingFrameService::InFlight {
    std::mutex mutex;
    std::map<std::string, std::shared_future<Mid::FrameImage>> frames;
    std::map<std::string, std::shared_future<Mid::ClipFacts>> facts;
    // Why a clip, by its source key, gave no facts ("facts\n" + key) or no picture ("frame\n" + key).
    std::map<std::string, std::string> failures;

    // Bounds the memory of a long session over many bad files; forgetting only costs a decode.
    static constexpr std::size_t kMaxFailures = 4096;

    void ThrowIfFailed(const std::string& failureKey) {
        std::lock_guard lock(mutex);
        if (auto found = failures.find(failureKey); found != failures.end())
            throw Mid::FrameUnavailable(found->second);
    }

    void Fail(const std::string& failureKey, const std::string& message) {
        std::lock_guard lock(mutex);
        if (failures.size() >= kMaxFailures)
            failures.clear();
        failures[failureKey] = message;
    }

    // The first caller of a key produces the answer; the others wait for it, or for its failure.
    template <class T> T Once(std::map<std::string, std::shared_future<T>>& running, const std::string& key,
                              const std::function<T()>& produce) {
        std::promise<T> promise;
        {
            std::unique_lock lock(mutex);
            if (auto found = running.find(key); found != running.end()) {
                std::shared_future<T> waiting = found->second;
                lock.unlock();
                return waiting.get();
            }
            running.emplace(key, promise.get_future().share());
        }
        const auto done = [&] {
            std::lock_guard lock(mutex);
            running.erase(key);
        };
        try {
            T value = produce();
            promise.set_value(value);
            done();
            return value;
        } catch (...) {
            promise.set_exception(std::current_exception());
            done();
            throw;
        }
    }
};

CachingFrameService::CachingFrameService(FrameCacheOptions options)
    : cache_(std::make_unique<FrameCache>(
          options.directory.empty() ? Fnd::IgdHomeDirectory() + "/cache/frames" : options.directory,
          options.limitBytes)),
      inFlight_(std::make_unique<InFlight>()) {}

CachingFrameService::~CachingFrameService() = default;

Mid::FrameImage CachingFrameService::PosterFrame(const std::string& path, int width, double atSeconds) {
    // To the millisecond: a browser asking again for "the same" time hits.
    const long long millisecond = std::llround(std::max(atSeconds, 0.0) * 1000);
    const std::string source = SourceKey(path);
    // A clip that has no facts has no picture either.
    inFlight_->ThrowIfFailed("facts\n" + source);
    inFlight_->ThrowIfFailed("frame\n" + source);
    const std::string key = "frame\n" + source + '\n' + std::to_string(width) + '\n' + std::to_string(millisecond);
    return inFlight_->Once<Mid::FrameImage>(inFlight_->frames, key, [&] {
        // Looked up only by the one caller that would decode, so that a caller arriving just after
        // another finished finds its answer stored.
        if (std::optional<std::vector<std::uint8_t>> png = cache_->Find(key))
            if (std::optional<Mid::FrameImage> image = FrameOf(std::move(*png)))
                return std::move(*image);
        ++mediaReads_;
        try {
            Mid::FrameImage image = DecodePosterFrame(path, width, double(millisecond) / 1000);
            cache_->Store(key, std::string_view(reinterpret_cast<const char*>(image.png.data()), image.png.size()));
            return image;
        } catch (const MediaError& error) {
            inFlight_->Fail("frame\n" + source, error.what());
            throw Mid::FrameUnavailable(error.what());
        }
    });
}

Mid::ClipFacts CachingFrameService::Facts(const std::string& path) {
    const std::string key = "facts\n" + SourceKey(path);
    inFlight_->ThrowIfFailed(key);
    return inFlight_->Once<Mid::ClipFacts>(inFlight_->facts, key, [&] {
        if (const std::optional<std::vector<std::uint8_t>> text = cache_->Find(key))
            if (std::optional<Mid::ClipFacts> facts = ClipFactsFromText(std::string(text->begin(), text->end())))
                return std::move(*facts);
        ++mediaReads_;
        try {
            Mid::ClipFacts facts = FactsOf(ProbeClip(path));
            cache_->Store(key, ClipFactsText(facts));
            return facts;
        } catch (const MediaError& error) {
            inFlight_->Fail(key, error.what());
            throw Mid::FrameUnavailable(error.what());
        }
    });
}

std::uint64_t CachingFrameService::CacheBytes() const {
    return cache_->TotalBytes();
}

void InstallFrameService() {
    Mid::FrameService::Install(std::make_shared<CachingFrameService>());
}

} // namespace Av
