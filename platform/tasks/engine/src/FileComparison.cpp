#include "FileComparison.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <vector>

#include "QL/ChecksumVerifyMode.h"

namespace QL::Engine {
namespace {

constexpr std::size_t kChunk = 1u << 20;

class ReadOnlyFile {
public:
    explicit ReadOnlyFile(const std::string& path) : fd_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        if (fd_ >= 0)
            ::posix_fadvise(fd_, 0, 0, POSIX_FADV_SEQUENTIAL);
    }
    ~ReadOnlyFile() {
        if (fd_ >= 0)
            ::close(fd_);
    }
    ReadOnlyFile(const ReadOnlyFile&) = delete;
    ReadOnlyFile& operator=(const ReadOnlyFile&) = delete;

    bool IsOpen() const { return fd_ >= 0; }
    // Fills the buffer as far as the file goes; -1 on a read error.
    ssize_t ReadFull(char* buffer, std::size_t size) {
        std::size_t done = 0;
        while (done < size) {
            const ssize_t got = ::read(fd_, buffer + done, size - done);
            if (got < 0) {
                if (errno == EINTR)
                    continue;
                return -1;
            }
            if (got == 0)
                break;
            done += static_cast<std::size_t>(got);
        }
        return static_cast<ssize_t>(done);
    }

private:
    int fd_;
};

} // namespace

std::optional<std::string> DigestOfFile(Checksum::Algorithm algorithm, const std::string& path) {
    ReadOnlyFile file(path);
    if (!file.IsOpen())
        return std::nullopt;
    const auto hasher = Checksum::MakeHasher(algorithm);
    std::vector<char> buffer(kChunk);
    for (;;) {
        const ssize_t got = file.ReadFull(buffer.data(), buffer.size());
        if (got < 0)
            return std::nullopt;
        if (got == 0)
            return hasher->FinishHex();
        hasher->Update(buffer.data(), static_cast<std::size_t>(got));
    }
}

bool SameBytes(const std::string& first, const std::string& second, Checksum::Hasher* firstHasher) {
    ReadOnlyFile a(first);
    ReadOnlyFile b(second);
    if (!a.IsOpen() || !b.IsOpen())
        return false;
    std::vector<char> bufferA(kChunk);
    std::vector<char> bufferB(kChunk);
    for (;;) {
        const ssize_t gotA = a.ReadFull(bufferA.data(), bufferA.size());
        const ssize_t gotB = b.ReadFull(bufferB.data(), bufferB.size());
        if (gotA < 0 || gotB < 0 || gotA != gotB)
            return false;
        if (gotA == 0)
            return true;
        if (!std::equal(bufferA.begin(), bufferA.begin() + gotA, bufferB.begin()))
            return false;
        if (firstHasher)
            firstHasher->Update(bufferA.data(), static_cast<std::size_t>(gotA));
    }
}

bool CopyMatchesSource(const std::string& source, const std::string& copy, std::uint32_t verifyMode,
                       std::string& checksum, std::string& checksumAlgorithm) {
    const std::optional<Checksum::Algorithm> compared = IngestTask::ChecksumAlgorithmOf(verifyMode);
    const Checksum::Algorithm algorithm = compared.value_or(Checksum::Algorithm::Xxh128);
    std::optional<std::string> sourceSum;
    if (compared) {
        sourceSum = DigestOfFile(algorithm, source);
        const auto copySum = DigestOfFile(algorithm, copy);
        if (!sourceSum || !copySum || *sourceSum != *copySum)
            return false;
    } else if (verifyMode == IngestTask::kVerifyBitByBit) {
        // One pass over both files gives the comparison and the source's digest.
        const auto hasher = Checksum::MakeHasher(algorithm);
        if (!SameBytes(source, copy, hasher.get()))
            return false;
        sourceSum = hasher->FinishHex();
    } else {
        sourceSum = DigestOfFile(algorithm, source);
        if (!sourceSum)
            return false;
    }
    checksum = *sourceSum;
    checksumAlgorithm = Checksum::NameOf(algorithm);
    return true;
}


} // namespace QL::Engine
