#pragma once
// The example's main window: its own title and list of what it ingested on the left, the
// library's Ingest view on the right, its own status line and "Ingest file" button underneath.
#include <QMainWindow>
#include <QString>
#include <functional>
#include <memory>

#include "BatchFollower.h"
#include "IGD/IngestSettingsApi.h"

class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace fluxui::ui {
class OS_Window;
}
namespace igd::qt {
class NodePresenter;
}

namespace embed {

class EmbedWindow : public QMainWindow {
public:
    // Seeds the library's settings with one verified destination, destinationFolder, and shows its
    // view. file is what the button ingests.
    EmbedWindow(QString file, QString destinationFolder);
    ~EmbedWindow() override;

    // Runs once a batch the button started has ended, or when the button could start none:
    // succeeded when the file was copied and its copy verified.
    void SetIngestEndedHandler(std::function<void(bool succeeded)> handler) { ingestEnded_ = std::move(handler); }
    // What the button does: checks the view's settings, then ingests the file with them.
    void IngestFile();

protected:
    // The pane's resizes, which the layout makes after the window's own.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void SeedSettings(const QString& destinationFolder);
    void BuildWidgets();
    void FitViewToPane();
    void AddLine(const QString& line);
    void EndIngest(bool succeeded, const QString& summary);

    QString file_;
    QLabel* status_ = nullptr;
    QListWidget* ingested_ = nullptr;
    QListWidgetItem* progressLine_ = nullptr;
    QWidget* pane_ = nullptr;
    QPushButton* ingestButton_ = nullptr;

    boost::intrusive_ptr<fluxui::ui::OS_Window> toolkitWindow_;
    std::unique_ptr<fluxworkspace::workspace::Workspace> workspace_;
    IGD::IngestViewRef view_;
    std::unique_ptr<igd::qt::NodePresenter> presenter_;
    BatchFollower follower_;
    std::function<void(bool)> ingestEnded_;
};

} // namespace embed
