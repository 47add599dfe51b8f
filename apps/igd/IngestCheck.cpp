#include "IngestCheck.h"

#include <system_error>

#include "Fnd/IgdHome.h"
#include "Fnd/PathUtils.h"
#include "OutputFormat.h"
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

    Fnd::WString failing;
    if (!QL::IngestUtils::NoDuplicatedPaths(destinations, failing))
        return "destination named twice: " + U(failing);
    for (const Fnd::WString& destination : destinations) {
        for (const Fnd::WString& source : sources) {
            if (destination == source || QL::IngestUtils::FolderContain(source, destination, true))
                return "the destination lies inside a source: " + U(destination);
            if (QL::IngestUtils::FolderContain(destination, source, false))
                return "the source lies in the destination already: " + U(source);
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
    if (!QL::IngestUtils::PathsAreWritable(destinations, failing))
        return "the destination is not writable: " + U(failing);
    std::uint64_t missing = 0;
    if (!destinations.empty() &&
        !QL::IngestUtils::EnoughSpaceForCopy(sources, destinations, failing, missing))
        return "not enough space on " + U(failing) + ": " + HumanBytes(missing) + " more needed";
    return {};
}

} // namespace igd
