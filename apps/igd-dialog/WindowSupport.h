#pragma once
// What the windows of igd-dialog share: a pane that follows its window's size, and a wait that
// lets the window draw.
#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QObject>
#include <QThread>
#include <QWidget>

#include "IGD/LayoutPreview.h"
#include "IgdQt/NodePresenter.h"
#include "IgdQt/PictureSource.h"
#include "fluxmediabrowser/MediaBrowserModel.h"
#include "fluxui/ui/UI_Node.h"

namespace igd::dialog {

// The window's size is the pane's: a person resizing the window resizes the pane.
class FollowSize : public QObject {
public:
    explicit FollowSize(fluxui::ui::UI_Node& pane) : pane_(pane) {}
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize) {
            const QSize size = static_cast<QWidget*>(watched)->size();
            pane_.UI_SetLocalRectF({0, 0, static_cast<float>(size.width()), static_cast<float>(size.height())});
        }
        return false;
    }

private:
    fluxui::ui::UI_Node& pane_;
};

// A pane shown in a window of its own, titled, whose size it follows.
class PaneWindow {
public:
    PaneWindow(const fluxui::ui::UI_NodeRef& pane, const QString& title)
        : presenter_(pane, nullptr, qt::PictureSource(IGD::IngestResourceManager())), follow_(*pane) {
        QWidget* window = presenter_.RootWidget();
        window->setWindowTitle(title);
        window->setAutoFillBackground(true);
        window->installEventFilter(&follow_);
        window->show();
    }
    QWidget* Widget() const { return presenter_.RootWidget(); }

private:
    qt::NodePresenter presenter_;
    FollowSize follow_;
};

// Every clip listed has been read: its facts and thumbnail arrive together, and a sound-only clip
// has facts and no picture.
inline bool BrowserSettled(const fluxmediabrowser::MediaBrowserModel& model) {
    if (model.IsListing())
        return false;
    for (const fluxmediabrowser::MediaEntry& entry : model.Entries())
        if (!entry.folder && !entry.factsUnavailable && !entry.facts)
            return false;
    return true;
}

inline void ProcessEventsFor(int milliseconds) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds) {
        QApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
}

} // namespace igd::dialog
