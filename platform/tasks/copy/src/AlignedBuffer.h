#pragma once
#include <cstddef>
#include <cstdint>

namespace QL::Engine {

// Direct I/O wants buffers, offsets and lengths on a block boundary. 4 KiB satisfies every
// filesystem we meet; one that wants more refuses with EINVAL and the caller falls back.
inline constexpr std::size_t kIoAlignment = 4096;

inline constexpr std::uint64_t RoundUpToAlignment(std::uint64_t bytes) {
    return (bytes + kIoAlignment - 1) / kIoAlignment * kIoAlignment;
}

inline constexpr std::uint64_t RoundDownToAlignment(std::uint64_t bytes) {
    return bytes / kIoAlignment * kIoAlignment;
}

// A block of memory aligned for direct I/O, its size rounded up to the alignment.
class AlignedBuffer {
public:
    explicit AlignedBuffer(std::size_t bytes);
    ~AlignedBuffer();
    AlignedBuffer(AlignedBuffer&& other) noexcept;
    AlignedBuffer& operator=(AlignedBuffer&& other) noexcept;
    AlignedBuffer(const AlignedBuffer&) = delete;
    AlignedBuffer& operator=(const AlignedBuffer&) = delete;

    std::byte* Data() { return data_; }
    const std::byte* Data() const { return data_; }
    std::size_t Size() const { return size_; }

private:
    std::byte* data_ = nullptr;
    std::size_t size_ = 0;
};

} // namespace QL::Engine
