#include "pipeline/checks/TransferConflictCheck.h"

#include <filesystem>

#include "Fnd/PathUtils.h"
#include "IGD/SelectedFolderItem.h"
#include "QL/IngestUtils.h"
#include "fluxcore/ZString.h"
#include "pipeline/gathering/NormalizedRoot.h"
#include "fluxui/Messagebox.h"

namespace IGD {
namespace {

// The way from the source root to the destination by their names alone: "." for the same folder,
// no ".." inside it, empty when neither leads to the other. Mount points nest, so a destination
// on another filesystem can still lie inside a folder being copied.
Fnd::WString WayFromRoot(const Fnd::WString& sourceRoot, const Fnd::WString& target) {
    const std::filesystem::path root =
        std::filesystem::path(Fnd::ToUTF8(Fnd::PathUtils::RemoveTrailingSlash(sourceRoot))).lexically_normal();
    const std::filesystem::path destination =
        std::filesystem::path(Fnd::ToUTF8(Fnd::PathUtils::RemoveTrailingSlash(target))).lexically_normal();
    return Fnd::FromUTF8(destination.lexically_relative(root).string());
}

bool Refuse(std::string_view message, std::initializer_list<Fnd::WString> arguments) {
    fluxui::dialogs::messagebox::Messagebox(
        fluxcore::Localize("$$$/Quillon/Ingest/Failure/DestinationConflictTitle=Transfer Error"),
        fluxcore::Localize(message, arguments));
    return false;
}

bool RefuseSameFolder(const Fnd::WString& target) {
    return Refuse("$$$/Quillon/Ingest/Failure/RootPathEqualDestinationError=The destination folder "
                  "path @0 is the same as the source folder. Cannot transfer to the source folder.",
                  {target});
}

// The path with the links of its existing part resolved; as given when nothing of it exists.
Fnd::WString ResolvedPath(const Fnd::WString& path) {
    std::error_code error;
    const std::filesystem::path resolved =
        std::filesystem::weakly_canonical(std::filesystem::path(Fnd::ToUTF8(path)), error);
    return error ? path : Fnd::FromUTF8(resolved.native());
}

} // namespace

bool CheckTransferConflicts(const Fnd::WString& sourceRoot, const SelectedItemList& items,
                            const DestinationList& destinations) {
    const NormalizedRoot root(sourceRoot);
    const Fnd::WString resolvedRoot = ResolvedPath(sourceRoot);
    for (const IngestDestinationRef& destination : destinations) {
        const Fnd::WString target = destination->GetFullDestinationPath();
        // Links are seen through: a destination reached through one is where the copies land.
        const Fnd::WString relative = WayFromRoot(resolvedRoot, ResolvedPath(target));
        if (relative.empty())
            continue;
        const auto setting = destination->GetTranscodeSetting();
        const bool transcoding = setting && setting->enabled;
        const bool same = relative == u".";
        const bool inside = !same && relative.find(u"..") == Fnd::WString::npos;
        for (const SelectedItemRef& item : items) {
            const bool isFolder = dynamic_cast<const SelectedFolderItem*>(item.get()) != nullptr;
            if (same && (isFolder || !transcoding))
                return RefuseSameFolder(target);
            if (!isFolder || !inside)
                continue;
            const Fnd::WString folder = root.ItemPath(*item);
            if (QL::IngestUtils::SameFolder(folder, target))
                return RefuseSameFolder(target);
            if (QL::IngestUtils::FolderContain(folder, target, true))
                return Refuse(
                    "$$$/Quillon/Ingest/Failure/SelectContainDestinationError=The source folder path @0 "
                    "contains the destination folder @1. Cannot transfer to the sub-folder of the "
                    "source folder.",
                    {Fnd::PathUtils::RemoveTrailingSlash(folder), target});
        }
    }
    return true;
}

} // namespace IGD
