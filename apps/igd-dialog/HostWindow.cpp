#include "HostWindow.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <iostream>

#include "AppFrame/Application.h"
#include "AppFrame/Workspace.h"
#include "IGD/IngestDialogApi.h"
#include "IgdQt/QtStrings.h"
#include "Mid/Project.h"
#include "Proj/Project.h"
#include "QL/SRProject.h"

namespace igd::dialog {
namespace {

// The tree's items name their bin, so a chosen item ingests beside itself.
constexpr int kBinRole = Qt::UserRole;

class HostApplication : public AppFrame::Application {
public:
    explicit HostApplication(fluxui::ui::OS_Window& main) : main_(main) {}
    fluxui::ui::OS_Window* GetMainWindow() const override { return &main_; }

private:
    fluxui::ui::OS_Window& main_;
};

} // namespace

HostWindow::HostWindow(std::string projectPath, Fnd::WString defaultBin)
    : projectPath_(std::move(projectPath)), defaultBin_(std::move(defaultBin)), standIn_(new fluxui::ui::OS_Window(nullptr)),
      bins_(new QTreeWidget), ingest_(new QPushButton(tr("Ingest…"))), progressLine_(new QLabel),
      progressBar_(new QProgressBar), outcome_(new QListWidget), batch_([this] { ShowBatch(); }) {
    const QString projectName = qt::ToQString(Mid::GetProject()->GetName());
    setWindowTitle(projectName + QStringLiteral(" — igd-dialog"));
    auto& standIn = static_cast<fluxui::ui::OS_Window&>(*standIn_);
    standIn.SetTitle(qt::FromQString(windowTitle()));

    bins_->setHeaderLabels({tr("Name"), tr("File")});
    bins_->header()->setStretchLastSection(false);
    bins_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ingest_->setObjectName(QStringLiteral("ingest"));
    ingest_->setToolTip(tr("Ingest media into the chosen bin (Ctrl+I)"));
    connect(ingest_, &QPushButton::clicked, this, [this] { Ingest(); });
    auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_I), this);
    connect(shortcut, &QShortcut::activated, this, [this] { Ingest(); });
    progressBar_->setRange(0, 100);
    progressBar_->setVisible(false);
    progressLine_->setText(tr("Choose a bin and press Ingest."));
    outcome_->setVisible(false);

    auto* bar = new QHBoxLayout;
    bar->addWidget(ingest_);
    bar->addWidget(progressLine_, 1);
    bar->addWidget(progressBar_);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->addWidget(bins_, 1);
    column->addLayout(bar);
    column->addWidget(outcome_);
    setCentralWidget(content);
    resize(1280, 800);

    AppFrame::Workspace::Install(std::make_shared<fluxworkspace::workspace::Workspace>(&standIn));
    AppFrame::Application::Install(std::make_shared<HostApplication>(standIn));
    FollowGeometry();
    RefreshBins();
}

HostWindow::~HostWindow() {
    AppFrame::Application::Install(nullptr);
    AppFrame::Workspace::Install(nullptr);
}

Fnd::WString HostWindow::ChosenBin() const {
    const QList<QTreeWidgetItem*> chosen = bins_->selectedItems();
    if (chosen.isEmpty())
        return defaultBin_;
    return qt::FromQString(chosen.front()->data(0, kBinRole).toString());
}

void HostWindow::Ingest() {
    const Fnd::WString bin = ChosenBin();
    // The dialog's caption names the bin the library answers; without a library of its own the
    // host's current bin is that answer.
    QL::SRProject::GetInstance()->SetTargetBin(bin);
    IGD::DoIngestDialogAndPerformImport(bin);
    activateWindow();
}

void HostWindow::RefreshBins() {
    bins_->clear();
    std::unique_ptr<Proj::Project> project;
    try {
        project = Proj::Project::Open(projectPath_);
    } catch (const std::exception& error) {
        progressLine_->setText(tr("The project cannot be read: %1").arg(QString::fromStdString(error.what())));
        return;
    }
    const QString projectName = qt::ToQString(Mid::GetProject()->GetName());
    for (const Fnd::WString& bin : project->Bins()) {
        auto* binItem = new QTreeWidgetItem({bin.empty() ? projectName : qt::ToQString(bin)});
        binItem->setData(0, kBinRole, qt::ToQString(bin));
        for (const Proj::ProjectItem& item : project->Items(&bin)) {
            auto* row = new QTreeWidgetItem(binItem, {qt::ToQString(item.name), qt::ToQString(item.path)});
            row->setData(0, kBinRole, qt::ToQString(bin));
            row->setToolTip(0, qt::ToQString(item.path));
        }
        bins_->addTopLevelItem(binItem);
    }
    bins_->expandAll();
}

void HostWindow::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    FollowGeometry();
}

void HostWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    FollowGeometry();
}

void HostWindow::FollowGeometry() {
    auto& standIn = static_cast<fluxui::ui::OS_Window&>(*standIn_);
    const QRect frame = frameGeometry();
    standIn.SetTitleBarHeight(geometry().top() - frame.top());
    standIn.UI_SetGlobalStructureRect({frame.left(), frame.top(), frame.width(), frame.height()});
    if (const QScreen* display = screen())
        standIn.SetViewScaleFactor(static_cast<float>(display->devicePixelRatio()));
}

void HostWindow::ShowBatch() {
    progressBar_->setVisible(true);
    progressBar_->setValue(batch_.Percent());
    progressLine_->setText(QString::fromStdString(batch_.Line()));
    outcome_->clear();
    for (const std::string& failure : batch_.Failures())
        outcome_->addItem(QString::fromStdString(failure));
    outcome_->setVisible(!batch_.Failures().empty());
    if (batch_.State() == BatchState::Succeeded || batch_.State() == BatchState::Failed)
        RefreshBins();
}

} // namespace igd::dialog
