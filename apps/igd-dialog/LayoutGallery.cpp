#include "LayoutGallery.h"

#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QVBoxLayout>
#include <iostream>

#include "IgdQt/QtStrings.h"
#include "IgdQt/TreeSnapshot.h"
#include "fluxui/controls/UI_ScrollView.h"

namespace igd::dialog {
namespace {

// The entry after the layouts: all of them as folding sections, as the settings pane stacks them.
const QString kSectionsEntry = QStringLiteral("All layouts in sections");
constexpr float kSectionStackHeight = 480.0f;

qt::PictureSource Pictures() {
    return qt::PictureSource(IGD::IngestResourceManager());
}

fluxui::ui::UI_NodeRef BuildAllInSections(const std::vector<std::string>& names, float width) {
    std::vector<IGD::LayoutPreview> layouts;
    for (const std::string& name : names)
        layouts.push_back(
            IGD::BuildLayoutPreview(name, width - fluxui::controls::UI_ScrollView::kScrollBarSize));
    return IGD::BuildSectionStack(layouts, width, kSectionStackHeight);
}

} // namespace

LayoutGallery::LayoutGallery(float layoutWidth, QWidget* parent)
    : QWidget(parent), layoutWidth_(layoutWidth), names_(IGD::LayoutNames()), list_(new QListWidget),
      area_(new QScrollArea), status_(new QLabel) {
    setWindowTitle(QStringLiteral("IGD Layout Gallery"));
    for (const std::string& name : names_)
        list_->addItem(QString::fromStdString(name));
    list_->addItem(kSectionsEntry);
    list_->setMinimumWidth(list_->sizeHintForColumn(0) + 24);
    area_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    area_->setBackgroundRole(QPalette::Mid);
    status_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* right = new QVBoxLayout;
    right->addWidget(area_, 1);
    right->addWidget(status_);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(list_);
    layout->addLayout(right, 1);
    QObject::connect(list_, &QListWidget::currentRowChanged, this, [this](int row) { Show(row); });
    resize(static_cast<int>(layoutWidth_) + list_->minimumWidth() + 80, 560);
    list_->setCurrentRow(0);
}

LayoutGallery::~LayoutGallery() {
    // The presented widgets belong to the scroll area; the presenter lets go of them first.
    presenter_.reset();
}

void LayoutGallery::Show(int row) {
    presenter_.reset();
    if (row < 0)
        return;
    try {
        fluxui::ui::UI_NodeRef root;
        if (row < static_cast<int>(names_.size())) {
            IGD::LayoutPreview preview =
                IGD::BuildLayoutPreview(names_[static_cast<std::size_t>(row)], layoutWidth_);
            root = preview.root;
            status_->setText(QStringLiteral("%1 controls with ids").arg(preview.controls.size()));
        } else {
            root = BuildAllInSections(names_, layoutWidth_);
            status_->setText(QStringLiteral("Click a title to fold its section"));
        }
        presenter_ = std::make_unique<qt::NodePresenter>(root, nullptr, Pictures());
        presenter_->RootWidget()->setAutoFillBackground(true);
        area_->setWidget(presenter_->RootWidget());
    } catch (const std::exception& error) {
        status_->setText(QString::fromUtf8(error.what()));
    }
}

int WriteLayoutScreenshots(const QString& directory, float layoutWidth) {
    if (!QDir().mkpath(directory)) {
        std::cerr << "igd-dialog: cannot create " << directory.toStdString() << "\n";
        return 1;
    }
    const std::vector<std::string> names = IGD::LayoutNames();
    int failures = 0;
    const auto save = [&](const QString& file, const fluxui::ui::UI_NodeRef& root) {
        const QImage image = qt::RenderTree(root, Pictures());
        const QString path = QDir(directory).filePath(file);
        if (image.isNull() || !image.save(path, "PNG")) {
            std::cerr << "igd-dialog: cannot write " << path.toStdString() << "\n";
            ++failures;
        }
    };
    for (const std::string& name : names) {
        try {
            save(QString::fromStdString(name) + QStringLiteral(".png"),
                 IGD::BuildLayoutPreview(name, layoutWidth).root);
        } catch (const std::exception& error) {
            std::cerr << "igd-dialog: " << error.what() << "\n";
            ++failures;
        }
    }
    try {
        save(QStringLiteral("sections.png"), BuildAllInSections(names, layoutWidth));
    } catch (const std::exception& error) {
        std::cerr << "igd-dialog: " << error.what() << "\n";
        ++failures;
    }
    return failures;
}

} // namespace igd::dialog
