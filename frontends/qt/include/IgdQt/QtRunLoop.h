#pragma once
// Runs the work posted to the UI thread (Fnd::RunLoop) on Qt's event loop, urgent work first and
// each kind in the order posted.
#include <memory>

#include "Fnd/RunLoop.h"

class QObject;

namespace igd::qt {

class QtRunLoop : public Fnd::RunLoop {
public:
    // Create on the UI thread, after the application object.
    QtRunLoop();
    ~QtRunLoop() override;

    // Safe from any thread.
    void Post(Fnd::Task task, bool urgent) override;

    // Installs a new loop for the process and hands it what was posted to the default queue before.
    static std::shared_ptr<QtRunLoop> Install();

private:
    QObject* receiver_;
};

} // namespace igd::qt
