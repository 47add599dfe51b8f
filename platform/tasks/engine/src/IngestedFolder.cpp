#include "IngestedFolder.h"

#include "Fnd/PathUtils.h"

namespace QL::Engine {
namespace {

std::string CommonFolder(const std::vector<std::string>& paths) {
    if (paths.empty())
        return {};
    std::string common = Fnd::PathUtils::FolderOf(paths.front());
    for (const std::string& path : paths) {
        while (common != "/" && common != "." &&
               !(path.size() > common.size() && path.starts_with(common) && path[common.size()] == '/'))
            common = Fnd::PathUtils::FolderOf(common);
    }
    return common;
}

} // namespace

IngestedFolder IngestedFolderOf(const std::vector<std::string>& sources,
                                const std::vector<std::string>& targets) {
    IngestedFolder found{CommonFolder(targets), {}};
    std::string target = found.target;
    std::string source = CommonFolder(sources);
    while (target != "/" && source != "/" && !target.empty() && !source.empty() &&
           Fnd::PathUtils::FileNameOf(target) == Fnd::PathUtils::FileNameOf(source)) {
        found = {target, source};
        target = Fnd::PathUtils::FolderOf(target);
        source = Fnd::PathUtils::FolderOf(source);
    }
    return found;
}

} // namespace QL::Engine
