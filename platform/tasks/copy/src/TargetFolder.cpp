#include "TargetFolder.h"

#include <filesystem>
#include <system_error>

#include "ErrorText.h"
#include "Fnd/PathUtils.h"
#include "LinkedFolder.h"

namespace QL::Engine {

std::string PrepareFolderOf(const CopyTarget& target) {
    const std::string folder = Fnd::PathUtils::FolderOf(target.path);
    if (FolderPathHasLink(folder))
        return kLinkedFolderReason;
    if (target.folders)
        return target.folders->Ensure(folder);
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return error ? Because("could not create the folder", error.value()) : std::string();
}

std::string FolderAwareReason(const CopyTarget& target, std::string reason) {
    if (target.folders && target.folders->Gone(Fnd::PathUtils::FolderOf(target.path)))
        return "destination is gone";
    return reason;
}

} // namespace QL::Engine
