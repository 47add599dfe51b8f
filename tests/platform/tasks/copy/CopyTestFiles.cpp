#include "CopyTestFiles.h"

#include <fcntl.h>
#include <openssl/evp.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace igd::test {

bool SameContent(const std::string& a, const std::string& b) {
    std::ifstream left(a, std::ios::binary);
    std::ifstream right(b, std::ios::binary);
    if (!left || !right)
        return false;
    std::vector<char> x(1 << 20);
    std::vector<char> y(1 << 20);
    for (;;) {
        left.read(x.data(), static_cast<std::streamsize>(x.size()));
        right.read(y.data(), static_cast<std::streamsize>(y.size()));
        if (left.gcount() != right.gcount() || !std::equal(x.begin(), x.begin() + left.gcount(), y.begin()))
            return false;
        if (left.gcount() == 0)
            return true;
    }
}

std::string Md5Hex(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    EVP_MD_CTX* context = EVP_MD_CTX_new();
    EVP_DigestInit_ex(context, EVP_md5(), nullptr);
    std::vector<char> buffer(1 << 20);
    while (in.read(buffer.data(), static_cast<std::streamsize>(buffer.size())) || in.gcount() > 0)
        EVP_DigestUpdate(context, buffer.data(), static_cast<std::size_t>(in.gcount()));
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int length = 0;
    EVP_DigestFinal_ex(context, digest, &length);
    EVP_MD_CTX_free(context);
    std::string hex;
    char pair[3];
    for (unsigned int i = 0; i < length; ++i) {
        std::snprintf(pair, sizeof pair, "%02x", digest[i]);
        hex += pair;
    }
    return hex;
}

std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

bool Exists(const std::string& path) {
    struct stat status;
    return ::lstat(path.c_str(), &status) == 0;
}

struct timespec ModificationTime(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        throw std::runtime_error("cannot stat " + path);
    return status.st_mtim;
}

void SetModificationTime(const std::string& path, std::int64_t seconds, long nanoseconds) {
    const struct timespec times[2] = {{seconds, nanoseconds}, {seconds, nanoseconds}};
    if (::utimensat(AT_FDCWD, path.c_str(), times, 0) != 0)
        throw std::runtime_error("cannot set the time of " + path);
}

void FlipByte(const std::string& path, std::uint64_t offset) {
    const int fd = ::open(path.c_str(), O_RDWR);
    unsigned char byte = 0;
    if (fd < 0 || ::pread(fd, &byte, 1, static_cast<off_t>(offset)) != 1)
        throw std::runtime_error("cannot read a byte of " + path);
    byte = static_cast<unsigned char>(~byte);
    if (::pwrite(fd, &byte, 1, static_cast<off_t>(offset)) != 1)
        throw std::runtime_error("cannot write a byte of " + path);
    ::fsync(fd);
    ::close(fd);
}

bool TakesDirectIo(const std::string& folder) {
    const std::string probe = folder + "/direct-io-probe";
    const int fd = ::open(probe.c_str(), O_WRONLY | O_CREAT | O_DIRECT, 0600);
    if (fd >= 0)
        ::close(fd);
    ::unlink(probe.c_str());
    return fd >= 0;
}

} // namespace igd::test
