#include "IngestCheck.h"

#include <system_error>

#include "Fnd/IgdHome.h"
#include "Fnd/PathUtils.h"
#include "QL/IngestUtils.h"

namespace igd {
namespace {

std::string U(const Fnd::WString& text) {
    return Fnd::ToUTF8(text);
}

} // namespace

std::string CheckIngestInput(const std::vector<Fnd::WString>& sources,
                             const std::vector<Fnd::WString>& destinations) {
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
    // Only now that nothing else stands in the way are missing destinations made.
    for (const Fnd::WString& destination : destinations) {
        if (Fnd::PathUtils::ExistsOnDisk(destination, false))
            continue;
        try {
            Fnd::EnsureDirectory(U(destination));
        } catch (const std::system_error& error) {
            return "cannot create the destination " + U(destination) + ": " + error.code().message();
        }
    }
    return {};
}

} // namespace igd
