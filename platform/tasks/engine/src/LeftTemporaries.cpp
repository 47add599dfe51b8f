#include "LeftTemporaries.h"

#include <dirent.h>
#include <unistd.h>

#include <string_view>
#include <unordered_map>

#include "Fnd/AtomicFile.h"
#include "Fnd/PathUtils.h"
#include "QL/Engine/FileCopier.h"

namespace QL::Engine {
namespace {

bool EndsWithXmp(std::string_view name) {
    if (name.size() < 4 || name[name.size() - 4] != '.')
        return false;
    const std::string_view extension = name.substr(name.size() - 3);
    return (extension[0] | 0x20) == 'x' && (extension[1] | 0x20) == 'm' && (extension[2] | 0x20) == 'p';
}

// "A001" of "A001.MOV"; a leading dot is part of the name.
std::string_view StemOf(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos || dot == 0 ? name : name.substr(0, dot);
}

// The sidecar of "A001.MOV" is "A001.xmp" or "A001.MOV.xmp", in any case of the extension.
bool IsSidecarTemporaryFor(const std::string& entryName, const std::string& writtenName) {
    const std::string_view sidecar = Fnd::AtomicTemporaryTarget(entryName);
    if (!EndsWithXmp(sidecar))
        return false;
    const std::string_view media = sidecar.substr(0, sidecar.size() - 4);
    return media == writtenName || media == StemOf(writtenName);
}

void AddWritten(std::unordered_map<std::string, std::vector<std::string>>& namesOfFolder,
                const std::string& path) {
    if (path.empty())
        return;
    namesOfFolder[Fnd::PathUtils::FolderOf(path)].push_back(Fnd::PathUtils::FileNameOf(path));
}

void SweepFolder(const std::string& folder, const std::vector<std::string>& written) {
    DIR* dir = ::opendir(folder.c_str());
    if (!dir)
        return;
    std::vector<std::string> left;
    while (const dirent* entry = ::readdir(dir)) {
        const std::string name = entry->d_name;
        // Every temporary is hidden; most entries are not and cost one comparison.
        if (name.size() < 2 || name.front() != '.' || name == "..")
            continue;
        for (const std::string& file : written)
            if (IsTemporaryFor(name, file)) {
                left.push_back(name);
                break;
            }
    }
    ::closedir(dir);
    for (const std::string& name : left)
        ::unlink((folder + "/" + name).c_str());
}

} // namespace

bool IsTemporaryFor(const std::string& entryName, const std::string& writtenName) {
    return FileCopier::IsTemporaryNameFor(entryName, writtenName) || IsSidecarTemporaryFor(entryName, writtenName);
}

void RemoveLeftTemporaries(const std::vector<FileRecord>& files) {
    std::unordered_map<std::string, std::vector<std::string>> namesOfFolder;
    for (const FileRecord& file : files) {
        AddWritten(namesOfFolder, Fnd::ToUTF8(file.target));
        if (!file.finalPath.empty() && file.finalPath != Fnd::ToUTF8(file.target))
            AddWritten(namesOfFolder, file.finalPath);
    }
    for (const auto& [folder, written] : namesOfFolder)
        SweepFolder(folder, written);
}

} // namespace QL::Engine
