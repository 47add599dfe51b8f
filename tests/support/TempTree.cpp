#include "support/TempTree.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <system_error>
#include <vector>

namespace igd::test {
namespace {

[[noreturn]] void Fail(const std::string& what, const std::string& path, int error) {
    throw std::runtime_error("TempTree: " + what + " " + path + ": " + std::strerror(error));
}

} // namespace

TempTree::TempTree() {
    const char* tmp = std::getenv("TMPDIR");
    std::string pattern = std::string(tmp && *tmp ? tmp : "/tmp") + "/igd-test-XXXXXX";
    std::vector<char> buffer(pattern.begin(), pattern.end());
    buffer.push_back('\0');
    if (!::mkdtemp(buffer.data()))
        Fail("cannot create", pattern, errno);
    root_ = buffer.data();
}

TempTree::~TempTree() {
    namespace fs = std::filesystem;
    std::error_code error;
    // A test may have taken permissions away to provoke a failure; give them back so that
    // nothing is left behind. Links are not followed, so nothing outside the tree is touched.
    for (auto it =
             fs::recursive_directory_iterator(root_, fs::directory_options::skip_permission_denied, error);
         !error && it != fs::recursive_directory_iterator(); it.increment(error)) {
        if (it->is_directory(error) && !it->is_symlink(error))
            ::chmod(it->path().c_str(), 0700);
    }
    ::chmod(root_.c_str(), 0700);
    fs::remove_all(root_, error);
}

std::string TempTree::NativePath(std::string_view relative) const {
    if (relative.empty())
        return root_;
    return root_ + "/" + std::string(relative);
}

Fnd::WString TempTree::Path(std::string_view relative) const {
    return Fnd::FromUTF8(NativePath(relative));
}

void TempTree::MakeParents(std::string_view relative) const {
    const std::size_t slash = relative.rfind('/');
    if (slash == std::string_view::npos)
        return;
    std::error_code error;
    std::filesystem::create_directories(NativePath(relative.substr(0, slash)), error);
    if (error)
        throw std::runtime_error("TempTree: cannot create folders for " + NativePath(relative) + ": " +
                                 error.message());
}

Fnd::WString TempTree::MakeFile(std::string_view relative, std::string_view content) {
    MakeParents(relative);
    const std::string path = NativePath(relative);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!out.flush())
        Fail("cannot write", path, errno);
    return Path(relative);
}

Fnd::WString TempTree::MakeFileOfSize(std::string_view relative, std::uint64_t size) {
    MakeParents(relative);
    const std::string path = NativePath(relative);
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    // The chunk length is prime, so files of different names start their cycles differently.
    constexpr std::size_t kChunk = 65521;
    std::string chunk(kChunk, '\0');
    const std::size_t seed = std::hash<std::string_view>()(relative);
    for (std::size_t i = 0; i < kChunk; ++i)
        chunk[i] = static_cast<char>((seed + i * 131) % 251);
    for (std::uint64_t left = size; left > 0 && out;) {
        const std::size_t n = left < kChunk ? static_cast<std::size_t>(left) : kChunk;
        out.write(chunk.data(), static_cast<std::streamsize>(n));
        left -= n;
    }
    if (!out.flush())
        Fail("cannot write", path, errno);
    return Path(relative);
}

Fnd::WString TempTree::MakeFolder(std::string_view relative) {
    std::error_code error;
    std::filesystem::create_directories(NativePath(relative), error);
    if (error)
        throw std::runtime_error("TempTree: cannot create " + NativePath(relative) + ": " + error.message());
    return Path(relative);
}

Fnd::WString TempTree::MakeSymlink(std::string_view relative, std::string_view target) {
    MakeParents(relative);
    const std::string path = NativePath(relative);
    if (::symlink(std::string(target).c_str(), path.c_str()) != 0)
        Fail("cannot link", path, errno);
    return Path(relative);
}

std::string ReadFileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + path);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

} // namespace igd::test
