#include "LayoutGallery.h"

#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QVBoxLayout>
#include <functional>
#include <iostream>

#include "AppFrame/DocumentManager.h"
#include "HostApp/ApplicationType.h"
#include "IGD/TemplateSectionPreview.h"
#include "IGD/TransferSectionPreview.h"
#include "VaultClient/IVaultCDataServer.h"
#include "IgdQt/QtStrings.h"
#include "IgdQt/TreeSnapshot.h"
#include "fluxui/controls/UI_ScrollView.h"

namespace igd::dialog {
namespace {

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

// Which application and project an entry shows its view in: the process's own, or a hosted
// application, or a project on a collaboration server.
enum class Setting { Process, Hosted, Remote };

// The entries after the layouts: views built of several layouts, live as in the dialog.
struct ComposedEntry {
    const char* title;
    const char* file; // the screenshot's name
    std::function<fluxui::ui::UI_NodeRef(const std::vector<std::string>& names, float width)> build;
    Setting setting = Setting::Process;
};

// Puts the host kind and the document manager of an entry in place while its view lives, and the
// process's own back when it goes: the sections read both at build time and while they are used.
class SettingScope {
public:
    explicit SettingScope(Setting setting)
        : kind_(HostApp::GetApplicationType()), remote_(IsRemote()),
          server_(VaultClient::IVaultCDataServer::GetLoggedInServerRef()) {
        if (setting == Setting::Hosted)
            HostApp::SetApplicationType(kHostedKind);
        if (setting == Setting::Remote) {
            AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(true));
            if (!server_)
                VaultClient::IVaultCDataServer::SetLoggedInServer(VaultClient::MakeNamedServer(u"Stage Server"));
        }
    }
    ~SettingScope() {
        HostApp::SetApplicationType(kind_);
        AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(remote_));
        VaultClient::IVaultCDataServer::SetLoggedInServer(server_);
    }
    SettingScope(const SettingScope&) = delete;
    SettingScope& operator=(const SettingScope&) = delete;

private:
    static constexpr int kHostedKind = 5;
    static bool IsRemote() {
        const AppFrame::DocumentManager* documents = AppFrame::DocumentManager::Instance();
        return documents && documents->IsVaultMode();
    }
    int kind_;
    bool remote_;
    Fnd::InterfaceRef<VaultClient::IVaultCDataServer> server_;
};

// Tall enough for the whole stack of a primary and two backups.
constexpr float kTransferStackHeight = 900.0f;

fluxui::ui::UI_NodeRef TransferSection(const std::vector<std::string>&, float width) {
    return IGD::BuildTransferSectionPreview(width, kTransferStackHeight);
}

std::function<fluxui::ui::UI_NodeRef(const std::vector<std::string>&, float)>
TemplateSection(IGD::TemplateSectionKind kind, IGD::TemplateSectionMode mode) {
    return [kind, mode](const std::vector<std::string>&, float width) {
        return IGD::BuildTemplateSectionPreview(kind, mode, width, kSectionStackHeight);
    };
}

const std::vector<ComposedEntry>& ComposedEntries() {
    using Kind = IGD::TemplateSectionKind;
    using Mode = IGD::TemplateSectionMode;
    static const std::vector<ComposedEntry> entries = {
        {"All layouts in sections", "sections.png", BuildAllInSections},
        {"Rename template", "rename-normal.png", TemplateSection(Kind::Rename, Mode::Normal)},
        {"Rename template, editing", "rename-edit.png", TemplateSection(Kind::Rename, Mode::Edit)},
        {"Metadata template", "metadata-normal.png", TemplateSection(Kind::Metadata, Mode::Normal)},
        {"Metadata template, editing", "metadata-edit.png", TemplateSection(Kind::Metadata, Mode::Edit)},
        {"Transfer", "transfer-normal.png", TransferSection},
        {"Transfer, hosted application", "transfer-hosted.png", TransferSection, Setting::Hosted},
        {"Transfer, remote project", "transfer-remote.png", TransferSection, Setting::Remote},
    };
    return entries;
}

} // namespace

LayoutGallery::LayoutGallery(float layoutWidth, const QString& firstEntry, QWidget* parent)
    : QWidget(parent), layoutWidth_(layoutWidth), names_(IGD::LayoutNames()), list_(new QListWidget),
      area_(new QScrollArea), status_(new QLabel) {
    setWindowTitle(QStringLiteral("IGD Layout Gallery"));
    for (const std::string& name : names_)
        list_->addItem(QString::fromStdString(name));
    for (const ComposedEntry& entry : ComposedEntries())
        list_->addItem(QString::fromUtf8(entry.title));
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
    const QList<QListWidgetItem*> found = list_->findItems(firstEntry, Qt::MatchExactly);
    list_->setCurrentRow(firstEntry.isEmpty() || found.isEmpty() ? 0 : list_->row(found.front()));
}

LayoutGallery::~LayoutGallery() {
    // The presented widgets belong to the scroll area; the presenter lets go of them first.
    presenter_.reset();
}

void LayoutGallery::Show(int row) {
    presenter_.reset();
    setting_.reset();
    if (row < 0)
        return;
    try {
        fluxui::ui::UI_NodeRef root;
        if (row < static_cast<int>(names_.size())) {
            IGD::LayoutPreview preview =
                IGD::BuildLayoutPreview(names_[static_cast<std::size_t>(row)], layoutWidth_);
            root = preview.root;
            area_->setBackgroundRole(QPalette::Mid);
            status_->setText(QStringLiteral("%1 controls with ids").arg(preview.controls.size()));
        } else {
            const ComposedEntry& entry = ComposedEntries()[static_cast<std::size_t>(row) - names_.size()];
            setting_ = std::make_shared<SettingScope>(entry.setting);
            // A view of the dialog stands on the dialog's own ground, as it will in the dialog.
            area_->setBackgroundRole(QPalette::Window);
            root = entry.build(names_, layoutWidth_);
            status_->setText(QStringLiteral("Live: click, type, choose and fold as in the dialog"));
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
    for (const ComposedEntry& entry : ComposedEntries()) {
        try {
            const SettingScope setting(entry.setting);
            save(QString::fromUtf8(entry.file), entry.build(names, layoutWidth));
        } catch (const std::exception& error) {
            std::cerr << "igd-dialog: " << error.what() << "\n";
            ++failures;
        }
    }
    return failures;
}

} // namespace igd::dialog
