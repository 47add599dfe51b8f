#pragma once
// A private folder for the readers that only take a path: made once per process, removed at its
// exit, with each input written over the same file so that a run of millions of inputs leaves
// nothing behind. It lies in memory where it can: a disk's file system makes the writes of each
// input forty times slower than the parse.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace igd::fuzz {

inline const std::filesystem::path& ScratchFolder() {
    static const std::filesystem::path folder = [] {
        std::error_code error;
        const std::filesystem::path shared = "/dev/shm";
        const std::filesystem::path base =
            ::getenv("TMPDIR") == nullptr && std::filesystem::is_directory(shared, error) ? shared
                                                                                           : std::filesystem::temp_directory_path();
        std::string pattern = (base / "igd-fuzz-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("cannot make a scratch folder under " + pattern);
        std::atexit([] {
            std::error_code ignored;
            std::filesystem::remove_all(ScratchFolder(), ignored);
        });
        return std::filesystem::path(pattern);
    }();
    return folder;
}

// Writes bytes to a file below the scratch folder, making its folders; answers its path.
inline std::filesystem::path WriteScratchFile(const std::string& relative, const std::uint8_t* data,
                                              std::size_t size) {
    const std::filesystem::path file = ScratchFolder() / relative;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + file.string());
    return file;
}

inline std::filesystem::path WriteScratchFile(const std::string& relative, const std::string& text) {
    return WriteScratchFile(relative, reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

} // namespace igd::fuzz
