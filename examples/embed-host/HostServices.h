#pragma once
// What the library reaches through while this program runs: the presets, the preferences, the
// project, the media layer, the task service that copies, and the Qt event loop and boxes that
// its messages and questions go through. Installed in the constructor and taken away, in the
// opposite order, in the destructor. Create after the QApplication.
#include <memory>

namespace QL::Engine {
class TaskService;
}
namespace igd::qt {
class QtRunLoop;
}

namespace embed {

class HostServices {
public:
    // Throws std::runtime_error when the preferences or the task journal cannot be opened.
    HostServices();
    ~HostServices();
    HostServices(const HostServices&) = delete;
    HostServices& operator=(const HostServices&) = delete;

    QL::Engine::TaskService& TaskService() const { return *taskService_; }

private:
    std::shared_ptr<igd::qt::QtRunLoop> runLoop_;
    std::shared_ptr<QL::Engine::TaskService> taskService_;
};

} // namespace embed
