#include "AlignedBuffer.h"

#include <sys/mman.h>

#include <new>
#include <utility>

namespace QL::Engine {

// Mapped rather than taken from the heap: pages come aligned, and go back to the system when the
// copy ends instead of staying with the allocator, whose arenas would otherwise keep the peak of
// every copy's buffers for the life of the process.
AlignedBuffer::AlignedBuffer(std::size_t bytes) : size_(RoundUpToAlignment(bytes == 0 ? 1 : bytes)) {
    void* memory = ::mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::bad_alloc();
    data_ = static_cast<std::byte*>(memory);
}

AlignedBuffer::~AlignedBuffer() {
    if (data_)
        ::munmap(data_, size_);
}

AlignedBuffer::AlignedBuffer(AlignedBuffer&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)) {}

AlignedBuffer& AlignedBuffer::operator=(AlignedBuffer&& other) noexcept {
    if (this != &other) {
        if (data_)
            ::munmap(data_, size_);
        data_ = std::exchange(other.data_, nullptr);
        size_ = std::exchange(other.size_, 0);
    }
    return *this;
}

} // namespace QL::Engine
