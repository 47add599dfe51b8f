#include "TargetNames.h"

#include <climits>

#include "FileIo.h"
#include "Fnd/PathUtils.h"

namespace QL::Engine {
namespace {

constexpr const char kTemporarySuffix[] = ".igd-partial";

// Cuts a UTF-8 name to at most limit bytes without splitting a character.
std::string CutName(const std::string& name, std::size_t limit) {
    if (name.size() <= limit)
        return name;
    std::size_t end = limit;
    while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80)
        --end;
    return name.substr(0, end);
}

std::string JoinFolder(const std::string& path, const std::string& name) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? name : path.substr(0, slash + 1) + name;
}

} // namespace

std::string TemporaryVariant(const std::string& finalPath, unsigned n) {
    const std::string tag = n == 0 ? std::string() : "." + std::to_string(n);
    const std::size_t extra = 1 + tag.size() + sizeof kTemporarySuffix - 1;
    const std::string name = CutName(Fnd::PathUtils::FileNameOf(finalPath), NAME_MAX - extra);
    return JoinFolder(finalPath, "." + name + tag + kTemporarySuffix);
}

bool IsTemporaryFileName(const std::string& fileName) {
    const std::size_t suffix = sizeof kTemporarySuffix - 1;
    return fileName.size() > suffix + 1 && fileName.front() == '.' &&
           fileName.compare(fileName.size() - suffix, suffix, kTemporarySuffix) == 0;
}

bool IsTemporaryFileNameFor(const std::string& temporaryName, const std::string& finalName) {
    if (!IsTemporaryFileName(temporaryName))
        return false;
    if (temporaryName == TemporaryVariant(finalName, 0))
        return true;
    // ".NAME.N.igd-partial": the number stands right before the suffix.
    const std::size_t numberEnd = temporaryName.size() - (sizeof kTemporarySuffix - 1);
    const std::size_t dot = temporaryName.rfind('.', numberEnd - 1);
    if (dot == std::string::npos || dot + 1 == numberEnd || numberEnd - dot > 10)
        return false;
    unsigned n = 0;
    for (std::size_t i = dot + 1; i < numberEnd; ++i) {
        if (temporaryName[i] < '0' || temporaryName[i] > '9')
            return false;
        n = n * 10 + static_cast<unsigned>(temporaryName[i] - '0');
    }
    return n != 0 && temporaryName == TemporaryVariant(finalName, n);
}

std::string NumberedPath(const std::string& path, unsigned n, bool isFolder) {
    if (n == 0)
        return path;
    const std::string name = Fnd::PathUtils::FileNameOf(path);
    const std::size_t dot = isFolder ? std::string::npos : name.rfind('.');
    const bool hasExtension = dot != std::string::npos && dot != 0;
    const std::string stem = hasExtension ? name.substr(0, dot) : name;
    const std::string extension = hasExtension ? name.substr(dot) : std::string();
    return JoinFolder(path, stem + " (" + std::to_string(n) + ")" + extension);
}

} // namespace QL::Engine
