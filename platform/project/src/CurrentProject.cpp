#include <filesystem>

#include "Mid/Project.h"
#include "NamedObject.h"

namespace Proj {

const Fnd::InterfaceID& IProject::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{4BC31A5E-B53D-494E-B779-7552F10A8D0D}");
    return id;
}

Fnd::InterfaceRef<IProject> MakeProjectOfFile(const std::string& utf8Path) {
    // Paths are bytes here; the name is shown, so it is read as UTF-8.
    const std::string stem = std::filesystem::path(utf8Path).stem().string();
    return Fnd::InterfaceRef<IProject>(new detail::NamedObject<IProject>(Fnd::FromUTF8(stem)));
}

} // namespace Proj

namespace Mid {
namespace {
Proj::detail::InstalledSlot<Proj::IProject>& OpenProjectSlot() {
    static Proj::detail::InstalledSlot<Proj::IProject> slot;
    return slot;
}
} // namespace

Fnd::InterfaceRef<Proj::IProject> GetProject() {
    return OpenProjectSlot().Get();
}

void SetProject(Fnd::InterfaceRef<Proj::IProject> project) {
    OpenProjectSlot().Set(std::move(project));
}

} // namespace Mid
