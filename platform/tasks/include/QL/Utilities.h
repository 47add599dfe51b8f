#pragma once
#include <functional>
#include <vector>

#include "Fnd/WString.h"
#include "QL/IngestUtils.h"

namespace QL {

class Utilities {
public:
    // Appends every entry below the folder, folders before their content, names in byte order,
    // so that a copy can recreate empty folders too.
    static void ExtendFolderPaths(const Fnd::WString& folder, std::vector<Fnd::WString>& paths);
    // The sidecar of a media file: an existing "<stem>.xmp" (any case of the extension), else an
    // existing "<name>.<ext>.xmp", else "<stem>.xmp" beside the media.
    static Fnd::WString GetXMPPath(const Fnd::WString& mediaPath);
    // Appends to paths each element of first, then of second, that it does not hold yet.
    static void MergePathList(std::vector<Fnd::WString>& paths, const std::vector<Fnd::WString>& first,
                              const std::vector<Fnd::WString>& second);
    // The file belongs to a clip stored as a folder structure on a camera card, as the card
    // providers see it.
    static bool IsFolderBasedClip(const Fnd::WString& path);
    // The path relative to root; "" for root itself; "../" steps when it lies outside.
    static Fnd::WString GetRelativePath(const Fnd::WString& root, const Fnd::WString& path);
    // Where a sidecar goes when its media was renamed: beside the renamed media, named newName
    // plus whatever followed the old file name in the sidecar's name ("A001.MOV.XMP" becomes
    // "B.MOV.XMP", "A001.XMP" becomes "B.XMP"). Without the sidecar's name, "<newName>.xmp".
    static Fnd::WString RenameSideCarFile(const Fnd::WString& renamedMediaPath,
                                          const Fnd::WString& oldFileName, const Fnd::WString& newName,
                                          const Fnd::WString& sidecarPath = {});

    // The site's fixed configuration from Fnd::SiteFile("ingest-settings.xml"). No file: not
    // locked, no default subfolder. A file that cannot be read as our format gives the same
    // defaults and reports why through the site settings warning handler.
    static IngestUtils::IngestSettings GetConfigurableIngestSettings();

    // Receives the text of a warning about the site settings (localised, naming the file), for a
    // host to show. Answers the previous handler; an empty handler drops warnings, which is the
    // default.
    using SiteSettingsWarningHandler = std::function<void(const Fnd::WString& warning)>;
    static SiteSettingsWarningHandler SetSiteSettingsWarningHandler(SiteSettingsWarningHandler handler);
};

} // namespace QL
