#include "AppFrame/Application.h"

namespace AppFrame {
namespace {

std::shared_ptr<Application>& Slot() {
    static std::shared_ptr<Application>* slot = new std::shared_ptr<Application>;
    return *slot;
}

} // namespace

Application* Application::Instance() {
    return Slot().get();
}

void Application::Install(std::shared_ptr<Application> application) {
    Slot() = std::move(application);
}

} // namespace AppFrame
