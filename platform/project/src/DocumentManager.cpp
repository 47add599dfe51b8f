#include "AppFrame/DocumentManager.h"

#include <utility>

namespace AppFrame {
namespace {
std::shared_ptr<DocumentManager>& Slot() {
    static std::shared_ptr<DocumentManager> manager;
    return manager;
}
} // namespace

DocumentManager* DocumentManager::Instance() {
    return Slot().get();
}

void DocumentManager::SetInstance(std::shared_ptr<DocumentManager> manager) {
    Slot() = std::move(manager);
}

} // namespace AppFrame
