#include "Mhl/FileDigest.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "Checksum/Checksum.h"
#include "Mhl/C4Id.h"

namespace Mhl {
namespace {

constexpr const char* kFastestFirst[] = {"xxh128", "xxh3", "xxh64", "md5", "c4"};

class FileDescriptor {
public:
    explicit FileDescriptor(const std::string& path) : fd_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        if (fd_ < 0)
            throw std::system_error(errno, std::generic_category(), path);
    }
    ~FileDescriptor() { ::close(fd_); }
    int Get() const { return fd_; }

private:
    int fd_;
};

template <typename Consume> void ReadAll(const std::string& path, Consume&& consume) {
    const FileDescriptor file(path);
    // Dirty pages stay until written; clean ones are dropped so the read comes from the medium.
    ::posix_fadvise(file.Get(), 0, 0, POSIX_FADV_DONTNEED);
    ::posix_fadvise(file.Get(), 0, 0, POSIX_FADV_SEQUENTIAL);
    static thread_local std::vector<char> buffer(std::size_t{1} << 20);
    for (;;) {
        const ssize_t got = ::read(file.Get(), buffer.data(), buffer.size());
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            throw std::system_error(errno, std::generic_category(), path);
        if (got == 0)
            break;
        consume(buffer.data(), static_cast<std::size_t>(got));
    }
    // What was read is not kept in memory at the cost of what others need there.
    ::posix_fadvise(file.Get(), 0, 0, POSIX_FADV_DONTNEED);
}

} // namespace

const Digest* ComputableDigest(const FileHash& hash) {
    for (const char* format : kFastestFirst)
        for (const Digest& digest : hash.digests)
            if (digest.format == format && !digest.value.empty())
                return &digest;
    return nullptr;
}

std::string DigestOfFile(const std::string& path, const std::string& format) {
    if (format == "c4") {
        C4Hasher hasher;
        ReadAll(path, [&](const char* data, std::size_t size) { hasher.Update(data, size); });
        return hasher.FinishId();
    }
    const std::optional<Checksum::Algorithm> algorithm = Checksum::AlgorithmNamed(format);
    if (!algorithm)
        throw std::invalid_argument("no digest of format \"" + format + "\" is computed here");
    const std::unique_ptr<Checksum::Hasher> hasher = Checksum::MakeHasher(*algorithm);
    ReadAll(path, [&](const char* data, std::size_t size) { hasher->Update(data, size); });
    return hasher->FinishHex();
}

} // namespace Mhl
