#pragma once
#include <cstdint>
#include <ctime>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Av {

// Small answers kept on disk, one file per key in one folder, the least recently used removed once
// the folder holds more than its limit. A hit costs one open and one read; the folder is listed once
// per process, at the first call. Every process sharing the folder may read and write it: a file
// another removed is a miss, a file cut short or foreign is a miss and removed. The cache never
// fails its caller: a folder it cannot write only makes every call a miss.
class FrameCache {
public:
    FrameCache(std::string directory, std::uint64_t limitBytes);

    using Bytes = std::vector<std::uint8_t>;

    std::optional<Bytes> Find(const std::string& key);
    void Store(const std::string& key, std::string_view payload);

    // What the files of the cache hold, as this process knows them.
    std::uint64_t TotalBytes();

private:
    struct Entry {
        std::string name;
        std::uint64_t bytes = 0;
        std::time_t touched = 0; // the file's time as last set
    };
    using Recency = std::list<Entry>; // least recently used first

    static std::string FileNameOf(const std::string& key);
    void LoadIndexLocked();
    // Makes the entry the most recently used; touched: when its file's time was last set.
    void UseLocked(const std::string& name, std::uint64_t bytes, std::time_t touched);
    void ForgetLocked(const std::string& name);
    void EvictLocked();

    const std::string directory_;
    const std::uint64_t limitBytes_;
    std::mutex mutex_;
    bool indexed_ = false;
    Recency recency_;
    std::unordered_map<std::string, Recency::iterator> byName_;
    std::uint64_t bytes_ = 0;
};

} // namespace Av
