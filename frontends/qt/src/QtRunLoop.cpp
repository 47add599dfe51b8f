#include "IgdQt/QtRunLoop.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QThread>
#include <stdexcept>

namespace igd::qt {
namespace {

const QEvent::Type kTaskEvent = static_cast<QEvent::Type>(QEvent::registerEventType());

class TaskEvent : public QEvent {
public:
    explicit TaskEvent(Fnd::Task task) : QEvent(kTaskEvent), task_(std::move(task)) {}
    void Run() { task_(); }

private:
    Fnd::Task task_;
};

class TaskReceiver : public QObject {
public:
    bool event(QEvent* event) override {
        if (event->type() != kTaskEvent)
            return QObject::event(event);
        static_cast<TaskEvent*>(event)->Run();
        return true;
    }
};

} // namespace

QtRunLoop::QtRunLoop() : receiver_(new TaskReceiver) {
    if (!QCoreApplication::instance())
        throw std::logic_error("QtRunLoop: create the application object first");
    receiver_->moveToThread(QCoreApplication::instance()->thread());
}

QtRunLoop::~QtRunLoop() {
    // Work still waiting is dropped with the receiver, as the host is going away.
    if (QThread::currentThread() == receiver_->thread())
        delete receiver_;
    else
        receiver_->deleteLater();
}

void QtRunLoop::Post(Fnd::Task task, bool urgent) {
    if (!task)
        throw std::invalid_argument("RunLoop::Post: empty task");
    // Qt delivers higher priorities first and each priority in the order posted.
    QCoreApplication::postEvent(receiver_, new TaskEvent(std::move(task)),
                                urgent ? Qt::HighEventPriority : Qt::NormalEventPriority);
}

std::shared_ptr<QtRunLoop> QtRunLoop::Install() {
    auto loop = std::make_shared<QtRunLoop>();
    Fnd::SetRunLoop(loop);
    loop->Post([] { Fnd::GetDefaultQueue().Drain(); }, true);
    return loop;
}

} // namespace igd::qt
