#pragma once
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "Mid/FrameService.h"

namespace Av {

class FrameCache;

struct FrameCacheOptions {
    std::string directory;                 // empty: $IGD_HOME/cache/frames
    std::uint64_t limitBytes = 256ull << 20;
};

// The frame service on FFmpeg: poster frames and facts decoded from the clip once, then read from
// a cache on disk for as long as the clip keeps its size and modification time. Threads asking for
// the same answer at once wait for one decode, and a clip that could not be read is not tried
// again in this process until its size or modification time change.
class CachingFrameService final : public Mid::FrameService {
public:
    explicit CachingFrameService(FrameCacheOptions options = {});
    ~CachingFrameService() override;

    Mid::FrameImage PosterFrame(const std::string& path, int width, double atSeconds = 0) override;
    Mid::ClipFacts Facts(const std::string& path) override;

    // Clips this service opened with FFmpeg: a call the cache answered adds none.
    std::uint64_t MediaReads() const { return mediaReads_.load(); }
    // What the cache's files hold.
    std::uint64_t CacheBytes() const;

private:
    struct InFlight;
    std::unique_ptr<FrameCache> cache_;
    std::unique_ptr<InFlight> inFlight_;
    std::atomic<std::uint64_t> mediaReads_{0};
};

// Installs a CachingFrameService with its cache under $IGD_HOME: one line at a host's start-up.
void InstallFrameService();

} // namespace Av
