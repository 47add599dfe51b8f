#include "Proj/Project.h"

#include <system_error>

#include "Fnd/IgdHome.h"
#include "SqliteProject.h"

namespace Proj {

std::unique_ptr<Project> Project::Open(const std::string& utf8Path) {
    if (utf8Path.empty())
        throw ProjectError("cannot open a project without a path");
    const std::size_t slash = utf8Path.rfind('/');
    if (slash != std::string::npos && slash > 0) {
        try {
            Fnd::EnsureDirectory(utf8Path.substr(0, slash));
        } catch (const std::system_error& error) {
            throw ProjectError("cannot create the folder of the project " + utf8Path + ": " + error.what());
        }
    }
    return std::make_unique<SqliteProject>(utf8Path);
}

std::string DefaultProjectPath() {
    return Fnd::IgdHomeDirectory() + "/project.igdproj";
}

} // namespace Proj
