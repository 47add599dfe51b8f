#include "IngestCheck.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "Fnd/PathUtils.h"
#include "QL/IngestUtils.h"

namespace igd {
namespace {

std::string U(const Fnd::WString& text) {
    return Fnd::ToDisplayUTF8(text);
}

} // namespace

void RemoveMadeFolders(const std::vector<Fnd::WString>& made) {
    // Deepest first; a folder something was put into meanwhile stays.
    for (auto it = made.rbegin(); it != made.rend(); ++it)
        ::rmdir(Fnd::ToUTF8(*it).c_str());
}

std::string CheckIngestInput(const std::vector<Fnd::WString>& sources,
                             const std::vector<Fnd::WString>& destinations,
                             std::vector<Fnd::WString>& made) {
    for (const Fnd::WString& source : sources)
        if (!Fnd::PathUtils::ExistsOnDisk(source, false))
            return "no such file or folder: " + U(source);

    for (const Fnd::WString& destination : destinations) {
        for (const Fnd::WString& source : sources) {
            if (QL::IngestUtils::SameFolder(source, destination) ||
                QL::IngestUtils::FolderContain(source, destination, true))
                return "the destination lies inside a source: " + U(destination);
        }
        if (Fnd::PathUtils::ExistsOnDisk(destination, false) && !Fnd::PathUtils::IsDirectory(destination))
            return "the destination is not a folder: " + U(destination);
    }
    // A missing folder inside one that exists is the folder for the day's shoot, and is made; a
    // missing parent too is more likely a mistyped path or an unplugged disk, where making a tree
    // of folders would put the copies somewhere nobody looks.
    for (const Fnd::WString& destination : destinations) {
        if (!Fnd::PathUtils::ExistsOnDisk(destination, false) &&
            !Fnd::PathUtils::IsDirectory(Fnd::PathUtils::FolderOf(destination)))
            return "neither the destination nor the folder holding it exists: " + U(destination);
    }
    // Only now that nothing else stands in the way are missing destinations made.
    for (const Fnd::WString& destination : destinations) {
        if (Fnd::PathUtils::ExistsOnDisk(destination, false))
            continue;
        if (::mkdir(Fnd::ToUTF8(destination).c_str(), 0777) == 0)
            made.push_back(destination);
        else if (errno != EEXIST) // another igd given the same new folder made it first
            return "cannot create the destination " + U(destination) + ": " + std::strerror(errno);
    }
    return {};
}

} // namespace igd
