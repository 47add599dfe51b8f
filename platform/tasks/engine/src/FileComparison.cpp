#include "FileComparison.h"

#include <fcntl.h>
#include <unistd.h>

#include <openssl/evp.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <vector>

#include "QL/CopySetting.h"

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

std::optional<std::string> Md5OfFile(const std::string& path) {
    ReadOnlyFile file(path);
    if (!file.IsOpen())
        return std::nullopt;
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
    if (!context || EVP_DigestInit_ex(context.get(), EVP_md5(), nullptr) != 1)
        return std::nullopt;
    std::vector<char> buffer(kChunk);
    for (;;) {
        const ssize_t got = file.ReadFull(buffer.data(), buffer.size());
        if (got < 0)
            return std::nullopt;
        if (got == 0)
            break;
        EVP_DigestUpdate(context.get(), buffer.data(), static_cast<std::size_t>(got));
    }
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int length = 0;
    if (EVP_DigestFinal_ex(context.get(), digest, &length) != 1)
        return std::nullopt;
    static const char kHex[] = "0123456789abcdef";
    std::string hex;
    for (unsigned int i = 0; i < length; ++i) {
        hex.push_back(kHex[digest[i] >> 4]);
        hex.push_back(kHex[digest[i] & 15]);
    }
    return hex;
}

bool SameBytes(const std::string& first, const std::string& second) {
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
    }
}

bool CopyMatchesSource(const std::string& source, const std::string& copy, std::uint32_t verifyMode,
                       std::string& checksum) {
    switch (verifyMode) {
    case IngestTask::kVerifyMD5: {
        const auto sourceSum = Md5OfFile(source);
        const auto copySum = Md5OfFile(copy);
        if (!sourceSum || !copySum || *sourceSum != *copySum)
            return false;
        checksum = *sourceSum;
        return true;
    }
    case IngestTask::kVerifyBitByBit:
        return SameBytes(source, copy);
    default:
        return true;
    }
}

} // namespace QL::Engine
