#include "FrameCache.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <system_error>
#include <cstdio>
#include <cstring>
#include <vector>

#include "Fnd/IgdHome.h"

namespace Av {
namespace {

constexpr std::string_view kMagic = "igd-frame-cache 1";
constexpr std::string_view kSuffix = ".cache";
// A hit marks its file used again at most this often, so that most hits write nothing.
constexpr std::time_t kTouchSeconds = 60;
// A temporary this old was left by a process that died while writing it.
constexpr std::time_t kAbandonedSeconds = 3600;

std::string Header(std::size_t keyBytes, std::size_t payloadBytes) {
    return std::string(kMagic) + " " + std::to_string(keyBytes) + " " + std::to_string(payloadBytes) + "\n";
}

// "<magic> <key bytes> <payload bytes>\n": where the key starts, and the two sizes.
struct Layout {
    std::size_t headerBytes = 0;
    std::size_t keyBytes = 0;
    std::size_t payloadBytes = 0;
    std::size_t Total() const { return headerBytes + keyBytes + payloadBytes; }
};

std::optional<Layout> LayoutOf(std::string_view head) {
    if (!head.starts_with(kMagic) || head.size() <= kMagic.size() || head[kMagic.size()] != ' ')
        return std::nullopt;
    Layout layout;
    const char* at = head.data() + kMagic.size() + 1;
    const char* end = head.data() + head.size();
    auto parsed = std::from_chars(at, end, layout.keyBytes);
    if (parsed.ec != std::errc() || parsed.ptr == end || *parsed.ptr != ' ')
        return std::nullopt;
    parsed = std::from_chars(parsed.ptr + 1, end, layout.payloadBytes);
    if (parsed.ec != std::errc() || parsed.ptr == end || *parsed.ptr != '\n')
        return std::nullopt;
    layout.headerBytes = std::size_t(parsed.ptr + 1 - head.data());
    return layout;
}

// The payload when the file is one the cache wrote for this key, whole; nothing when it is missing.
// Damaged or foreign files set damaged. One read for a file of the usual size.
std::optional<FrameCache::Bytes> ReadPayload(const std::string& path, const std::string& key, bool& damaged) {
    damaged = false;
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return std::nullopt;
    thread_local std::vector<char> buffer(64 * 1024);
    std::size_t got = 0;
    std::optional<Layout> layout;
    // Reads until the file ends or, once the header is known, the whole entry is in: a longer file
    // is no entry of ours.
    while (true) {
        const std::size_t want = layout ? layout->Total() + 1 : buffer.size();
        if (want > buffer.size())
            buffer.resize(want);
        const ssize_t read = ::read(fd, buffer.data() + got, want - got);
        if (read <= 0)
            break;
        got += std::size_t(read);
        if (!layout) {
            layout = LayoutOf(std::string_view(buffer.data(), std::min<std::size_t>(got, 128)));
            if (!layout && got >= 128)
                break;
        }
        if (layout && got > layout->Total())
            break;
    }
    ::close(fd);
    if (!layout || got != layout->Total() || layout->keyBytes != key.size() ||
        std::string_view(buffer.data() + layout->headerBytes, layout->keyBytes) != key) {
        damaged = true;
        return std::nullopt;
    }
    FrameCache::Bytes payload(layout->payloadBytes);
    std::memcpy(payload.data(), buffer.data() + layout->headerBytes + layout->keyBytes, payload.size());
    return payload;
}

bool WriteAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t wrote = ::write(fd, bytes.data(), bytes.size());
        if (wrote <= 0)
            return false;
        bytes.remove_prefix(std::size_t(wrote));
    }
    return true;
}

} // namespace

FrameCache::FrameCache(std::string directory, std::uint64_t limitBytes)
    : directory_(std::move(directory)), limitBytes_(limitBytes) {}

// FNV-1a: the key itself is kept in the file, so a collision is only a miss.
std::string FrameCache::FileNameOf(const std::string& key) {
    std::uint64_t hash = 14695981039346656037ull;
    for (const unsigned char c : key)
        hash = (hash ^ c) * 1099511628211ull;
    char hex[17];
    std::snprintf(hex, sizeof hex, "%016llx", static_cast<unsigned long long>(hash));
    return std::string(hex) + std::string(kSuffix);
}

std::optional<FrameCache::Bytes> FrameCache::Find(const std::string& key) {
    const std::string name = FileNameOf(key);
    const std::string path = directory_ + "/" + name;
    bool damaged = false;
    std::optional<Bytes> payload = ReadPayload(path, key, damaged);
    std::unique_lock lock(mutex_);
    LoadIndexLocked();
    if (!payload) {
        ForgetLocked(name);
        lock.unlock();
        if (damaged)
            ::unlink(path.c_str());
        return std::nullopt;
    }
    const auto found = byName_.find(name);
    const std::time_t now = std::time(nullptr);
    const std::time_t touched = found == byName_.end() ? 0 : found->second->touched;
    const bool stale = now - touched >= kTouchSeconds;
    UseLocked(name, Header(key.size(), payload->size()).size() + key.size() + payload->size(),
              stale ? now : touched);
    lock.unlock();
    // Other processes, and this one's next run, order their eviction by the files' times.
    if (stale)
        ::utimensat(AT_FDCWD, path.c_str(), nullptr, 0);
    return payload;
}

void FrameCache::Store(const std::string& key, std::string_view payload) {
    const std::string name = FileNameOf(key);
    std::string temporary = directory_ + "/." + name + ".XXXXXX";
    try {
        Fnd::EnsureDirectory(directory_);
    } catch (const std::system_error&) {
        return;
    }
    const int fd = ::mkstemp(temporary.data());
    if (fd < 0)
        return;
    // No flush: a file a crash cut short fails its check and is read as a miss.
    const bool written = WriteAll(fd, Header(key.size(), payload.size())) && WriteAll(fd, key) &&
                         WriteAll(fd, payload);
    const bool closed = ::close(fd) == 0;
    if (!written || !closed || ::rename(temporary.c_str(), (directory_ + "/" + name).c_str()) != 0) {
        ::unlink(temporary.c_str());
        return;
    }
    std::lock_guard lock(mutex_);
    LoadIndexLocked();
    UseLocked(name, Header(key.size(), payload.size()).size() + key.size() + payload.size(), std::time(nullptr));
    EvictLocked();
}

std::uint64_t FrameCache::TotalBytes() {
    std::lock_guard lock(mutex_);
    LoadIndexLocked();
    return bytes_;
}

void FrameCache::LoadIndexLocked() {
    if (indexed_)
        return;
    indexed_ = true;
    DIR* folder = ::opendir(directory_.c_str());
    if (folder == nullptr)
        return;
    const std::time_t now = std::time(nullptr);
    std::vector<Entry> entries;
    while (const dirent* item = ::readdir(folder)) {
        const std::string name = item->d_name;
        const std::string path = directory_ + "/" + name;
        struct stat info {};
        if (::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode))
            continue;
        if (name.starts_with('.')) {
            if (now - info.st_mtime > kAbandonedSeconds)
                ::unlink(path.c_str());
        } else if (name.ends_with(kSuffix)) {
            entries.push_back(Entry{name, std::uint64_t(info.st_size), info.st_mtime});
        }
    }
    ::closedir(folder);
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.touched < b.touched; });
    for (Entry& entry : entries) {
        bytes_ += entry.bytes;
        const std::string name = entry.name;
        byName_[name] = recency_.insert(recency_.end(), std::move(entry));
    }
    EvictLocked();
}

void FrameCache::UseLocked(const std::string& name, std::uint64_t bytes, std::time_t touched) {
    if (const auto found = byName_.find(name); found != byName_.end()) {
        // Moved to the end without a new node: a hit allocates nothing here.
        recency_.splice(recency_.end(), recency_, found->second);
        bytes_ = bytes_ - found->second->bytes + bytes;
        found->second->bytes = bytes;
        found->second->touched = touched;
        return;
    }
    bytes_ += bytes;
    byName_[name] = recency_.insert(recency_.end(), Entry{name, bytes, touched});
}

void FrameCache::ForgetLocked(const std::string& name) {
    const auto found = byName_.find(name);
    if (found == byName_.end())
        return;
    bytes_ -= found->second->bytes;
    recency_.erase(found->second);
    byName_.erase(found);
}

void FrameCache::EvictLocked() {
    while (bytes_ > limitBytes_ && !recency_.empty()) {
        const Entry& oldest = recency_.front();
        ::unlink((directory_ + "/" + oldest.name).c_str());
        ForgetLocked(oldest.name);
    }
}

} // namespace Av
