#include "IngestCheck.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "Fnd/PathUtils.h"
#include "QL/IngestUtils.h"

namespace igd {
namespace {

std::string U(const Fnd::WString& text) {
    return Fnd::ToUTF8(text);
}

// Makes the folder and its missing parents, each recorded as it is made.
void MakeFolders(const std::string& folder, std::vector<std::string>& made) {
    std::vector<std::string> missing;
    struct stat info {};
    for (std::string path = folder; !path.empty() && path != "/" && ::stat(path.c_str(), &info) != 0;
         path = Fnd::PathUtils::FolderOf(path))
        missing.push_back(path);
    std::reverse(missing.begin(), missing.end());
    for (const std::string& path : missing) {
        if (::mkdir(path.c_str(), 0777) != 0 && errno != EEXIST)
            throw std::system_error(errno, std::generic_category(), path);
        made.push_back(path);
    }
}

} // namespace

void RemoveMadeFolders(const std::vector<std::string>& made) {
    // Deepest first; a folder something was put into meanwhile stays.
    for (auto it = made.rbegin(); it != made.rend(); ++it)
        ::rmdir(it->c_str());
}

std::string CheckIngestInput(const std::vector<Fnd::WString>& sources,
                             const std::vector<Fnd::WString>& destinations, std::vector<std::string>& made) {
    for (const Fnd::WString& source : sources)
        if (!Fnd::PathUtils::ExistsOnDisk(source, false))
            return "no such file or folder: " + U(source);

    for (const Fnd::WString& destination : destinations) {
        for (const Fnd::WString& source : sources) {
            if (destination == source || QL::IngestUtils::FolderContain(source, destination, true))
                return "the destination lies inside a source: " + U(destination);
        }
        if (Fnd::PathUtils::ExistsOnDisk(destination, false) && !Fnd::PathUtils::IsDirectory(destination))
            return "the destination is not a folder: " + U(destination);
    }
    // Only now that nothing else stands in the way are missing destinations made.
    for (const Fnd::WString& destination : destinations) {
        if (Fnd::PathUtils::ExistsOnDisk(destination, false))
            continue;
        try {
            MakeFolders(U(destination), made);
        } catch (const std::system_error& error) {
            return "cannot create the destination " + U(destination) + ": " + error.code().message();
        }
    }
    return {};
}

} // namespace igd
