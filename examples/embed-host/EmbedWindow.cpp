#include "EmbedWindow.h"

#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "Fnd/Date.h"
#include "IGD/IIngestDialogData.h"
#include "IGD/IngestApi.h"
#include "IGD/LayoutPreview.h"
#include "IgdQt/NodePresenter.h"
#include "IgdQt/PictureSource.h"
#include "QL/CopySetting.h"
#include "fluxui/ui/OS_Window.h"

namespace embed {
namespace {

constexpr int kListWidth = 260;
constexpr int kPaneWidth = 460;
constexpr int kPaneHeight = 620;

Fnd::WString Wide(const QString& text) {
    return Fnd::FromUTF8(text.toStdString());
}

} // namespace

EmbedWindow::EmbedWindow(QString file, QString destinationFolder)
    : file_(std::move(file)),
      follower_({
          .progress = [this](const std::string& text) { progressLine_->setText(QString::fromStdString(text)); },
          .outcome = [this](const std::string& line) { AddLine(QString::fromStdString(line)); },
          .ended = [this](bool succeeded, const std::string& summary) {
              EndIngest(succeeded, QString::fromStdString(summary));
          },
      }) {
    setWindowTitle(QStringLiteral("Embedding host"));
    BuildWidgets();
    // The library's order: the settings hold a destination before the view is made from them.
    SeedSettings(destinationFolder);
    toolkitWindow_ = new fluxui::ui::OS_Window(nullptr, Wide(windowTitle()));
    workspace_ = std::make_unique<fluxworkspace::workspace::Workspace>(toolkitWindow_.get());
    view_ = IGD::CreateIngestView(workspace_.get(), [this] { status_->setText(QStringLiteral("Settings changed")); });
    presenter_ = std::make_unique<igd::qt::NodePresenter>(view_, pane_,
                                                          igd::qt::PictureSource(IGD::IngestResourceManager()));
    FitViewToPane();
}

EmbedWindow::~EmbedWindow() {
    // The presenter's widgets belong to the pane; it lets go of the view before the window goes.
    presenter_.reset();
    view_.reset();
}

void EmbedWindow::SeedSettings(const QString& destinationFolder) {
    IGD::IngestDialogDataRef session = IGD::IngestDialogDataRef::Query(IGD::CreateIngestDialogData());
    IGD::IngestDestinationRef destination(new IGD::IngestDestination);
    destination->SetDestinationPath(Wide(destinationFolder));
    destination->SetPrimary(true);
    destination->SetEnabled(true);
    destination->SetTranscodeSetting(std::make_shared<QL::IngestTask::TranscodeSetting>());
    session->AddDestination(destination);
    session->SetImportOnly(false);
    session->SetVerifyMode(QL::IngestTask::kVerifyMD5);
    // No preset paths: the presets the settings hold stay.
    IGD::SetIngestSettings(session, Fnd::WString(), Fnd::WString());
}

void EmbedWindow::BuildWidgets() {
    auto* central = new QWidget(this);
    auto* columns = new QHBoxLayout;

    auto* left = new QVBoxLayout;
    auto* title = new QLabel(QStringLiteral("Ingested by this host"), central);
    QFont titleFont = title->font();
    titleFont.setBold(true);
    if (titleFont.pointSizeF() > 0)
        titleFont.setPointSizeF(titleFont.pointSizeF() * 1.3);
    else
        titleFont.setPixelSize(titleFont.pixelSize() * 13 / 10);
    title->setFont(titleFont);
    left->addWidget(title);
    ingested_ = new QListWidget(central);
    ingested_->setFixedWidth(kListWidth);
    ingested_->setWordWrap(true);
    // A record of what happened, not something to choose from.
    ingested_->setSelectionMode(QAbstractItemView::NoSelection);
    ingested_->setFocusPolicy(Qt::NoFocus);
    left->addWidget(ingested_);
    columns->addLayout(left);

    pane_ = new QWidget(central);
    pane_->setMinimumSize(kPaneWidth, kPaneHeight);
    pane_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    pane_->installEventFilter(this);
    columns->addWidget(pane_, 1);

    auto* bottom = new QHBoxLayout;
    status_ = new QLabel(QStringLiteral("Ready: %1").arg(QFileInfo(file_).fileName()), central);
    bottom->addWidget(status_, 1);
    ingestButton_ = new QPushButton(QStringLiteral("Ingest file"), central);
    connect(ingestButton_, &QPushButton::clicked, this, [this] { IngestFile(); });
    bottom->addWidget(ingestButton_);

    auto* rows = new QVBoxLayout(central);
    rows->addLayout(columns, 1);
    rows->addLayout(bottom);
    setCentralWidget(central);
}

bool EmbedWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == pane_ && event->type() == QEvent::Resize)
        FitViewToPane();
    return QMainWindow::eventFilter(watched, event);
}

// The view lays its sections out in the space it is given; the presenter's widget follows it.
void EmbedWindow::FitViewToPane() {
    if (!view_)
        return;
    const QSize size = pane_->size().expandedTo(pane_->minimumSize());
    view_->UI_SetLocalRectF({0, 0, static_cast<float>(size.width()), static_cast<float>(size.height())});
}

void EmbedWindow::AddLine(const QString& line) {
    ingested_->insertItem(progressLine_ ? ingested_->row(progressLine_) : ingested_->count(), line);
}

void EmbedWindow::IngestFile() {
    // The checks show their own boxes when a template cannot be used.
    if (!IGD::CheckIngestSettings(view_)) {
        EndIngest(false, QStringLiteral("The settings do not allow an ingest"));
        return;
    }
    const IGD::IngestDialogDataRef session = IGD::GetIngestSettings(view_);
    ingestButton_->setEnabled(false);
    progressLine_ = new QListWidgetItem(QStringLiteral("Starting %1").arg(QFileInfo(file_).fileName()), ingested_);
    status_->setText(QStringLiteral("Ingesting"));
    follower_.FollowNext();
    const fluxcore::utility::Guid batch = IGD::DoIngestOneMedia(Wide(file_), session, Fnd::Date::Now(), true);
    if (batch.IsZero()) {
        EndIngest(false, QStringLiteral("Nothing was submitted"));
        return;
    }
    follower_.Follow(batch);
}

void EmbedWindow::EndIngest(bool succeeded, const QString& summary) {
    if (progressLine_) {
        delete progressLine_;
        progressLine_ = nullptr;
    }
    AddLine(summary);
    status_->setText(summary);
    ingestButton_->setEnabled(true);
    if (ingestEnded_)
        ingestEnded_(succeeded);
}

} // namespace embed
