#pragma once
// The host's main window: the project's bins and what they hold, the Ingest button and its
// shortcut, and the batch that the last ingest started. While it lives it stands as the
// workspace's main window and as the application's, as a host's window does for the library.
#include <QMainWindow>
#include <memory>
#include <string>

#include "BatchWatch.h"
#include "fluxui/ui/OS_Window.h"

class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QTreeWidget;

namespace igd::dialog {

class HostWindow : public QMainWindow {
public:
    // projectPath is the project file the window shows and ingests into; defaultBin the bin an
    // ingest goes to while nothing is chosen in the tree ("" the root bin).
    explicit HostWindow(std::string projectPath, Fnd::WString defaultBin = {});
    ~HostWindow() override;

    // The bin chosen in the tree: a bin, or the bin of a chosen item; the default bin when none.
    Fnd::WString ChosenBin() const;
    // What the Ingest button does: the dialog for the chosen bin, then the batch it started.
    void Ingest();
    // Reads the project's bins and items again.
    void RefreshBins();

    const BatchWatch& Batch() const { return batch_; }
    QPushButton& IngestButton() const { return *ingest_; }
    QTreeWidget& BinTree() const { return *bins_; }

protected:
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // The toolkit's main window follows this one: its place, size and scale.
    void FollowGeometry();
    void ShowBatch();

    std::string projectPath_;
    Fnd::WString defaultBin_;
    fluxui::ui::UI_NodeRef standIn_;
    QTreeWidget* bins_;
    QPushButton* ingest_;
    QLabel* progressLine_;
    QProgressBar* progressBar_;
    QListWidget* outcome_;
    BatchWatch batch_;
};

} // namespace igd::dialog
