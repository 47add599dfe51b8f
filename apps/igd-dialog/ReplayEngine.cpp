#include "ReplayEngine.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QMessageBox>
#include <QWidget>
#include <iostream>

#include "Fnd/RunLoop.h"
#include "IgdQt/QtStrings.h"
#include "IgdQt/ToolkitDialog.h"
#include "ReplayControls.h"
#include "WindowSupport.h"
#include "fluxmediabrowser/MediaBrowserView.h"

namespace igd::dialog {
namespace {

constexpr int kTickMs = 20;
// Round trips of the run loop with nothing left before them that make a view settled.
constexpr int kQuietRounds = 2;

std::string ButtonText(const QAbstractButton& button) {
    return button.text().remove(QLatin1Char('&')).toStdString();
}

std::string WindowTitle(const QWidget* widget) {
    return widget ? widget->windowTitle().toStdString() : std::string("(none)");
}

} // namespace

ReplayEngine::ReplayEngine(std::vector<ReplayStep> steps, ReplayHost host, ReplayOptions options,
                           std::function<void(int)> finished)
    : steps_(std::move(steps)), host_(std::move(host)), options_(std::move(options)),
      finished_(std::move(finished)), markersBack_(std::make_shared<int>(0)) {
    timer_.setInterval(kTickMs);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Tick(); });
}

ReplayEngine::~ReplayEngine() = default;

void ReplayEngine::Start() {
    timer_.start();
}

ReplayEngine::Front ReplayEngine::FindFront() const {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal)
        return {host_.tree ? host_.tree() : nullptr, host_.widget ? host_.widget() : nullptr, false};
    if (auto* dialog = dynamic_cast<qt::ToolkitDialog*>(modal))
        return {&dialog->Presenter().RootNode(), dialog, false};
    return {nullptr, modal, qobject_cast<QMessageBox*>(modal) != nullptr, qobject_cast<QFileDialog*>(modal) != nullptr};
}

bool ReplayEngine::Settled() {
    if (*markersBack_ == markersPosted_) {
        if (markersPosted_ >= kQuietRounds) {
            const Front front = FindFront();
            fluxmediabrowser::MediaBrowserView* browser = front.tree ? FindMediaBrowser(*front.tree) : nullptr;
            if (!browser || BrowserSettled(browser->GetModel()))
                return true;
        }
        ++markersPosted_;
        std::weak_ptr<int> back = markersBack_;
        Fnd::GetRunLoop().Post([back] {
            if (auto count = back.lock())
                ++*count;
        }, false);
    }
    return false;
}

void ReplayEngine::Tick() {
    if (done_ || actionPending_)
        return;
    if (next_ >= steps_.size()) {
        Finish(0);
        return;
    }
    const ReplayStep& step = steps_[next_];
    if (!stepStarted_) {
        stepStarted_ = true;
        wasSettled_ = false;
        *markersBack_ = 0;
        markersPosted_ = 0;
        stepClock_.start();
        std::cout << "replay " << step.line << ": " << StepName(step.kind)
                  << (step.control.empty() ? "" : " " + step.control) << (step.text.empty() ? "" : " " + step.text)
                  << std::endl;
    }
    if (step.kind == StepKind::WaitBatch) {
        const BatchState state = host_.batchState ? host_.batchState() : BatchState::None;
        if (state == BatchState::Failed)
            return Fail(step, "the batch failed: " + host_.batchSummary());
        if (state != BatchState::Succeeded) {
            if (stepClock_.elapsed() > options_.batchLimitMs)
                Fail(step, "the batch had not ended in time");
            return;
        }
        std::cout << "  " << host_.batchSummary() << std::endl;
    } else {
        if (!Settled()) {
            if (stepClock_.elapsed() > options_.settleLimitMs)
                Fail(step, "the view did not settle");
            return;
        }
        if (!wasSettled_) {
            wasSettled_ = true;
            settledClock_.start();
        }
        const Front front = FindFront();
        if (!StepReady(step, front))
            return;
        switch (step.kind) {
        case StepKind::Screenshot:
            Screenshot(step, front);
            break;
        case StepKind::Answer:
            Answer(step, front);
            break;
        case StepKind::Choose:
            Choose(step, front);
            break;
        case StepKind::Title:
            // A caption may change a moment after the window opens, when an answer arrives.
            if (WindowTitle(front.widget) != step.text) {
                if (settledClock_.elapsed() > options_.controlLimitMs)
                    Fail(step, "the window in front is titled \"" + WindowTitle(front.widget) + "\"");
                return;
            }
            break;
        case StepKind::Dump:
            if (front.tree)
                for (const std::string& line : DescribeControls(*front.tree))
                    std::cout << "  " << line << std::endl;
            break;
        case StepKind::Quit:
            if (QApplication::activeModalWidget())
                return Fail(step, "quit while the window \"" + WindowTitle(front.widget) + "\" is open");
            return Finish(0);
        default:
            ActLater(step);
            break;
        }
    }
    if (done_)
        return;
    ++next_;
    stepStarted_ = false;
}

bool ReplayEngine::StepReady(const ReplayStep& step, const Front& front) {
    const bool wantsBox = step.kind == StepKind::Answer;
    const bool wantsFileDialog = step.kind == StepKind::Choose;
    const bool anyWindow =
        step.kind == StepKind::Screenshot || step.kind == StepKind::Title || step.kind == StepKind::Quit;
    if ((wantsBox && !front.isBox) || (wantsFileDialog && !front.isFileDialog)) {
        if (stepClock_.elapsed() > options_.boxLimitMs)
            Fail(step, std::string("no ") + (wantsBox ? "message box" : "file dialog") + " came; in front is \"" +
                           WindowTitle(front.widget) + "\"");
        return false;
    }
    if (wantsBox || wantsFileDialog || anyWindow)
        return true;
    if (front.isFileDialog) {
        if (settledClock_.elapsed() > options_.controlLimitMs)
            Fail(step, "a file dialog is in the way: \"" + WindowTitle(front.widget) + "\"");
        return false;
    }
    if (front.isBox) {
        // A box in front of a step that works a control: the person must answer it first.
        if (settledClock_.elapsed() > options_.controlLimitMs) {
            auto* box = static_cast<QMessageBox*>(front.widget);
            Fail(step, "a message box is in the way: \"" + box->text().toStdString() + "\"");
        }
        return false;
    }
    if (step.kind == StepKind::Ingest) {
        if (!host_.ingest) {
            Fail(step, "this window has no Ingest button");
            return false;
        }
        if (QApplication::activeModalWidget()) {
            Fail(step, "the host's Ingest button is behind \"" + WindowTitle(front.widget) + "\"");
            return false;
        }
        return true;
    }
    if (!front.tree) {
        Fail(step, "the window in front, \"" + WindowTitle(front.widget) + "\", has no controls to work");
        return false;
    }
    if (step.kind == StepKind::Browse || step.kind == StepKind::Tick || step.kind == StepKind::Untick) {
        if (FindMediaBrowser(*front.tree))
            return true;
        Fail(step, "the window \"" + WindowTitle(front.widget) + "\" has no media browser");
        return false;
    }
    try {
        if (FindControl(*front.tree, step.control))
            return true;
    } catch (const ReplayActionError& error) {
        Fail(step, error.what());
        return false;
    }
    if (settledClock_.elapsed() > options_.controlLimitMs)
        Fail(step, "no control \"" + step.control + "\" in the window \"" + WindowTitle(front.widget) + "\"");
    return false;
}

void ReplayEngine::ActLater(const ReplayStep& step) {
    actionPending_ = true;
    QTimer::singleShot(0, [this, step] {
        actionPending_ = false;
        try {
            Act(step);
        } catch (const ReplayActionError& error) {
            Fail(step, error.what());
        }
    });
}

void ReplayEngine::Act(const ReplayStep& step) {
    if (step.kind == StepKind::Ingest) {
        host_.ingest();
        return;
    }
    const Front front = FindFront();
    if (!front.tree)
        throw ReplayActionError("the window in front has no controls to work");
    if (step.kind == StepKind::Browse) {
        const QString path = QDir::current().absoluteFilePath(QString::fromStdString(step.text));
        FindMediaBrowser(*front.tree)->GetModel().OpenDirectory(qt::FromQString(QDir::cleanPath(path)));
        return;
    }
    if (step.kind == StepKind::Tick || step.kind == StepKind::Untick) {
        TickRow(*FindMediaBrowser(*front.tree), step.text, step.kind == StepKind::Tick);
        return;
    }
    fluxui::ui::UI_Node* control = FindControl(*front.tree, step.control);
    if (!control)
        throw ReplayActionError("no control \"" + step.control + "\" in the window \"" + WindowTitle(front.widget) +
                                "\"");
    if (step.kind == StepKind::Press)
        PressControl(*control, step.control);
    else if (step.kind == StepKind::Set)
        SetControl(*control, step.control, step.text);
    else
        TypeIntoControl(*control, step.control, step.text);
}

void ReplayEngine::Screenshot(const ReplayStep& step, const Front& front) {
    if (!front.widget)
        return Fail(step, "there is no window to take");
    QString file = QString::fromStdString(step.text);
    if (QFileInfo(file).isRelative() && !options_.screenshotFolder.isEmpty())
        file = QDir(options_.screenshotFolder).filePath(file);
    QDir().mkpath(QFileInfo(file).absolutePath());
    const QImage image = front.widget->grab().toImage();
    if (image.isNull() || !image.save(file, "PNG"))
        Fail(step, "cannot write " + file.toStdString());
}

void ReplayEngine::Answer(const ReplayStep& step, const Front& front) {
    auto* box = static_cast<QMessageBox*>(front.widget);
    std::string offered;
    for (QAbstractButton* button : box->buttons()) {
        if (ButtonText(*button) == step.text) {
            std::cout << "  \"" << box->text().toStdString() << "\": " << step.text << std::endl;
            button->click();
            return;
        }
        offered += (offered.empty() ? "" : ", ") + ButtonText(*button);
    }
    Fail(step, "the box \"" + box->text().toStdString() + "\" has no button \"" + step.text + "\", only " + offered);
}

void ReplayEngine::Choose(const ReplayStep& step, const Front& front) {
    auto* dialog = static_cast<QFileDialog*>(front.widget);
    const QString path = QDir::cleanPath(QDir::current().absoluteFilePath(QString::fromStdString(step.text)));
    // A folder is chosen by going into it, as the person does before pressing Choose.
    if (dialog->fileMode() == QFileDialog::Directory)
        dialog->setDirectory(path);
    else
        dialog->selectFile(path);
    // What the person's Return does: the dialog's own acceptance, which checks the choice.
    QMetaObject::invokeMethod(dialog, "accept", Qt::DirectConnection);
    if (dialog->isVisible())
        Fail(step, "the file dialog \"" + WindowTitle(dialog) + "\" did not take " + path.toStdString());
}

void ReplayEngine::Fail(const ReplayStep& step, const std::string& message) {
    failure_ = "line " + std::to_string(step.line) + " (" + StepName(step.kind) + "): " + message;
    std::cerr << "igd-dialog: replay " << failure_ << std::endl;
    Finish(1);
}

void ReplayEngine::Finish(int status) {
    if (done_)
        return;
    done_ = true;
    timer_.stop();
    if (finished_)
        finished_(status);
}

} // namespace igd::dialog
