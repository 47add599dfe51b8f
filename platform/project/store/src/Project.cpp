#include "Proj/Project.h"

#include <system_error>

#include "Fnd/IgdHome.h"
#include "Fnd/PathUtils.h"
#include "SqliteProject.h"

namespace Proj {

std::unique_ptr<Project> Project::Open(const std::string& utf8Path) {
    if (utf8Path.empty())
        throw ProjectError("cannot open a project without a path");
    try {
        Fnd::EnsureDirectory(Fnd::PathUtils::FolderOf(utf8Path));
    } catch (const std::system_error& error) {
        throw ProjectError("cannot create the folder of the project " + utf8Path + ": " + error.what());
    }
    return std::make_unique<SqliteProject>(utf8Path);
}

std::string DefaultProjectPath() {
    return Fnd::IgdHomeDirectory() + "/project.igdproj";
}

} // namespace Proj
