#include "AppFrame/Workspace.h"

namespace AppFrame {
namespace {

Workspace& Slot() {
    static Workspace* slot = new Workspace;
    return *slot;
}

} // namespace

Workspace* Workspace::Instance() {
    return Slot().workspace_ ? &Slot() : nullptr;
}

void Workspace::Install(std::shared_ptr<fluxworkspace::workspace::Workspace> workspace) {
    Slot().workspace_ = std::move(workspace);
}

} // namespace AppFrame
