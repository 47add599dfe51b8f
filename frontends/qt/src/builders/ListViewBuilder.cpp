#include <QAbstractTableModel>
#include <QApplication>
#include <QCache>
#include <QHeaderView>
#include <QIcon>
#include <QItemSelectionModel>
#include <QListView>
#include <QPainter>
#include <QPixmap>
#include <QResizeEvent>
#include <QScrollBar>
#include <QStackedLayout>
#include <QStyle>
#include <QTimer>
#include <QTreeView>
#include <algorithm>

#include "IgdQt/QtStrings.h"
#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_ListView.h"

namespace igd::qt {
namespace {

using fluxui::controls::ListRow;
using fluxui::controls::ListViewMode;
using fluxui::controls::UI_ListView;

// The node's rows as Qt sees them. Qt is told of each change as the node reports it, so the row
// count here is the one Qt knows, which the node's may run ahead of inside a notification.
class ListRowsModel : public QAbstractTableModel {
public:
    explicit ListRowsModel(UI_ListView& node, QObject* parent) : QAbstractTableModel(parent), node_(&node) {
        // Decoded thumbnails, in kilobytes: enough for several screens of icons, not for a whole
        // card of thousands of clips scrolled through once.
        pictures_.setMaxCost(96 * 1024);
    }

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : rowCount_; }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : std::max(1, static_cast<int>(node_->GetColumns().size()));
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        const auto& columns = node_->GetColumns();
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
            section >= static_cast<int>(columns.size()))
            return {};
        return ToQString(columns[static_cast<std::size_t>(section)].title);
    }

    Qt::ItemFlags flags(const QModelIndex& index) const override {
        const ListRow* row = RowAt(index);
        if (!row)
            return Qt::NoItemFlags;
        Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
        if (index.column() == 0 && row->checkable)
            flags |= Qt::ItemIsUserCheckable;
        return flags;
    }

    QVariant data(const QModelIndex& index, int role) const override {
        const ListRow* row = RowAt(index);
        if (!row)
            return {};
        const std::size_t column = static_cast<std::size_t>(index.column());
        switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            return column < row->cells.size() ? ToQString(row->cells[column]) : QString();
        case Qt::CheckStateRole:
            if (column == 0 && row->checkable)
                return row->checked ? Qt::Checked : Qt::Unchecked;
            return {};
        case Qt::DecorationRole:
            return column == 0 ? QVariant(Picture(static_cast<std::size_t>(index.row()), *row)) : QVariant();
        default:
            return {};
        }
    }

    // A tick by the person goes to the node, which answers with a change of the row.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override {
        const ListRow* row = RowAt(index);
        if (!row || role != Qt::CheckStateRole || index.column() != 0 || !row->checkable)
            return false;
        node_->SetRowChecked(static_cast<std::size_t>(index.row()),
                             value.value<Qt::CheckState>() == Qt::Checked, true);
        return true;
    }

    // Tells Qt what changed since it last looked: everything, rows at the end, or the rows
    // marked, a run of neighbouring rows at a time.
    // True when Qt was told to start again.
    bool ApplyChanges() {
        const fluxui::controls::ListRowChanges changes = node_->TakeRowChanges();
        const int count = static_cast<int>(node_->GetRowCount());
        if (changes.reset || count < rowCount_) {
            beginResetModel();
            rowCount_ = count;
            pictures_.clear();
            endResetModel();
            return true;
        }
        const int last = columnCount({}) - 1;
        const auto& rows = changes.rows;
        for (std::size_t i = 0; i < rows.size() && static_cast<int>(rows[i]) < rowCount_;) {
            std::size_t j = i;
            while (j + 1 < rows.size() && rows[j + 1] == rows[j] + 1 && static_cast<int>(rows[j + 1]) < rowCount_)
                ++j;
            Q_EMIT dataChanged(index(static_cast<int>(rows[i]), 0), index(static_cast<int>(rows[j]), last));
            i = j + 1;
        }
        if (count > rowCount_) {
            beginInsertRows({}, rowCount_, count - 1);
            rowCount_ = count;
            endInsertRows();
        }
        return false;
    }

    // The columns changed: Qt asks again for everything.
    void ResetAll() {
        node_->TakeRowChanges();
        beginResetModel();
        rowCount_ = static_cast<int>(node_->GetRowCount());
        pictures_.clear();
        endResetModel();
    }

private:
    struct DecodedPicture {
        std::shared_ptr<const std::vector<std::uint8_t>> source; // held so its address stays its own
        QIcon icon;
    };

    const ListRow* RowAt(const QModelIndex& index) const {
        if (!index.isValid() || index.row() >= rowCount_ ||
            static_cast<std::size_t>(index.row()) >= node_->GetRowCount())
            return nullptr;
        return &node_->GetRows()[static_cast<std::size_t>(index.row())];
    }

    // Decoded once and kept while the row holds the same picture; rows without one, or whose
    // picture does not decode, draw the standard picture of their kind.
    QIcon Picture(std::size_t rowIndex, const ListRow& row) const {
        if (row.picture && !row.picture->empty()) {
            const auto key = static_cast<int>(rowIndex);
            if (const DecodedPicture* cached = pictures_.object(key); cached && cached->source == row.picture)
                return cached->icon;
            QPixmap pixmap;
            if (pixmap.loadFromData(row.picture->data(), static_cast<uint>(row.picture->size()), "PNG")) {
                pixmap = Squared(pixmap);
                auto* decoded = new DecodedPicture{row.picture, QIcon(pixmap)};
                const QIcon icon = decoded->icon;
                const qsizetype kilobytes =
                    std::max<qsizetype>(1, qsizetype(pixmap.width()) * pixmap.height() * 4 / 1024);
                pictures_.insert(key, decoded, kilobytes);
                return icon;
            }
        }
        return QApplication::style()->standardIcon(row.folder ? QStyle::SP_DirIcon : QStyle::SP_FileIcon);
    }

    // Centred on a clear square, as the standard pictures are: every cell of the grid then has
    // the same size whatever the shape of its picture, so the grid lays out from one cell alone.
    static QPixmap Squared(const QPixmap& picture) {
        const int side = std::max(picture.width(), picture.height());
        if (picture.width() == picture.height())
            return picture;
        QPixmap square(side, side);
        square.fill(Qt::transparent);
        QPainter painter(&square);
        painter.drawPixmap((side - picture.width()) / 2, (side - picture.height()) / 2, picture);
        return square;
    }

    UI_ListView* node_;
    int rowCount_ = 0;
    mutable QCache<int, DecodedPicture> pictures_;
};

// The list (a tree view with a header) and the grid of pictures (a list view in icon mode) over
// one model and one selection, so switching between them keeps what is selected and ticked.
class ListViewWidget : public QWidget {
public:
    ListViewWidget(UI_ListView& node, QWidget* parent)
        : QWidget(parent), node_(&node), model_(new ListRowsModel(node, this)), tree_(new QTreeView(this)),
          icons_(new QListView(this)) {
        auto* layout = new QStackedLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(tree_);
        layout->addWidget(icons_);
        setFocusProxy(tree_);

        tree_->setModel(model_);
        tree_->setRootIsDecorated(false);
        tree_->setUniformRowHeights(true);
        tree_->setAllColumnsShowFocus(true);
        tree_->setItemsExpandable(false);
        tree_->header()->setStretchLastSection(true);
        tree_->header()->setSectionsMovable(false);

        icons_->setModel(model_);
        icons_->setSelectionModel(tree_->selectionModel());
        icons_->setViewMode(QListView::IconMode);
        icons_->setMovement(QListView::Static);
        icons_->setResizeMode(QListView::Adjust);
        icons_->setUniformItemSizes(true);
        icons_->setWordWrap(true);
        icons_->setTextElideMode(Qt::ElideMiddle);
        icons_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);

        for (QAbstractItemView* view : {static_cast<QAbstractItemView*>(tree_), static_cast<QAbstractItemView*>(icons_)}) {
            view->setSelectionMode(QAbstractItemView::ExtendedSelection);
            view->setSelectionBehavior(QAbstractItemView::SelectRows);
            view->setEditTriggers(QAbstractItemView::NoEditTriggers);
            view->setFocusPolicy(Qt::StrongFocus);
            view->viewport()->installEventFilter(this);
            QObject::connect(view, &QAbstractItemView::activated, this, [this](const QModelIndex& index) {
                if (index.isValid() && static_cast<std::size_t>(index.row()) < node_->GetRowCount())
                    node_->Activate(static_cast<std::size_t>(index.row()));
            });
            QObject::connect(view->verticalScrollBar(), &QScrollBar::valueChanged, this,
                             [this] { ScheduleVisibleRange(); });
        }
        QObject::connect(tree_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                         [this] { SelectionFromView(); });
        QObject::connect(model_, &QAbstractItemModel::rowsInserted, this, [this] { ScheduleVisibleRange(); });
        QObject::connect(model_, &QAbstractItemModel::modelReset, this, [this] { ScheduleVisibleRange(); });
    }

    QTreeView& Tree() const { return *tree_; }
    QListView& Icons() const { return *icons_; }
    ListRowsModel& Model() const { return *model_; }

    void Sync() {
        syncing_ = true;
        SyncAppearance();
        if (model_->ApplyChanges())
            presentedSelection_.clear();
        SyncSelection();
        syncing_ = false;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
            ScheduleVisibleRange();
        return QWidget::eventFilter(watched, event);
    }

private:
    QAbstractItemView& Current() const {
        return node_->GetMode() == ListViewMode::Icons ? static_cast<QAbstractItemView&>(*icons_)
                                                       : static_cast<QAbstractItemView&>(*tree_);
    }

    void SyncAppearance() {
        auto* layout = static_cast<QStackedLayout*>(this->layout());
        QAbstractItemView& current = Current();
        if (layout->currentWidget() != &current) {
            const bool hadFocus = layout->currentWidget() && layout->currentWidget()->hasFocus();
            layout->setCurrentWidget(&current);
            // The presenter gives the keyboard focus to this widget; the view shown takes it.
            setFocusProxy(&current);
            if (hadFocus)
                current.setFocus();
            ScheduleVisibleRange();
        }
        tree_->setHeaderHidden(!node_->ShowsHeader());
        const int small = fontMetrics().height();
        tree_->setIconSize(QSize(small, small));

        const int edge = std::max(16, static_cast<int>(node_->GetIconSize()));
        if (icons_->iconSize() != QSize(edge, edge)) {
            icons_->setIconSize(QSize(edge, edge));
            // Room for the picture, a tick box beside it and two lines of name under it.
            icons_->setGridSize(QSize(edge + 2 * small + 8, edge + 2 * small + 12));
        }

        const auto& columns = node_->GetColumns();
        if (columns.size() != presentedColumns_.size() ||
            !std::equal(columns.begin(), columns.end(), presentedColumns_.begin(),
                        [](const auto& a, const auto& b) { return a.key == b.key && a.title == b.title && a.width == b.width; })) {
            presentedColumns_ = columns;
            model_->ResetAll();
            presentedSelection_.clear();
            for (std::size_t i = 0; i < columns.size(); ++i)
                tree_->header()->resizeSection(static_cast<int>(i), static_cast<int>(columns[i].width));
        }
    }

    void SyncSelection() {
        const auto& selected = node_->GetSelection();
        if (selected == presentedSelection_)
            return;
        presentedSelection_ = selected;
        QItemSelection selection;
        const int last = model_->columnCount({}) - 1;
        for (std::size_t i = 0; i < selected.size();) {
            std::size_t j = i;
            while (j + 1 < selected.size() && selected[j + 1] == selected[j] + 1)
                ++j;
            selection.select(model_->index(static_cast<int>(selected[i]), 0),
                             model_->index(static_cast<int>(selected[j]), last));
            i = j + 1;
        }
        tree_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    }

    void SelectionFromView() {
        if (syncing_)
            return;
        std::vector<std::size_t> rows;
        for (const QModelIndex& index : tree_->selectionModel()->selectedRows())
            if (static_cast<std::size_t>(index.row()) < node_->GetRowCount())
                rows.push_back(static_cast<std::size_t>(index.row()));
        std::sort(rows.begin(), rows.end());
        presentedSelection_ = rows;
        node_->SetSelection(std::move(rows), true);
    }

    // Scrolling and resizing come in bursts; the rows on screen are worked out once they end.
    void ScheduleVisibleRange() {
        if (rangeQueued_)
            return;
        rangeQueued_ = true;
        QTimer::singleShot(0, this, [this] {
            rangeQueued_ = false;
            ReportVisibleRange();
        });
    }

    void ReportVisibleRange() {
        const int count = model_->rowCount({});
        if (count == 0 || !isVisible()) {
            node_->SetVisibleRange(0, 0);
            return;
        }
        int first = 0;
        int last = count - 1;
        if (node_->GetMode() == ListViewMode::List) {
            const QRect area = tree_->viewport()->rect();
            const QModelIndex top = tree_->indexAt(QPoint(1, 1));
            const QModelIndex bottom = tree_->indexAt(QPoint(1, area.height() - 2));
            first = top.isValid() ? top.row() : 0;
            last = bottom.isValid() ? bottom.row() : count - 1;
        } else {
            const QSize grid = icons_->gridSize();
            const QRect area = icons_->viewport()->rect();
            const int perLine = std::max(1, area.width() / std::max(1, grid.width()));
            const int firstLine = icons_->verticalScrollBar()->value() / std::max(1, grid.height());
            const int lines = area.height() / std::max(1, grid.height()) + 2;
            first = std::min(count - 1, firstLine * perLine);
            last = std::min(count - 1, first + lines * perLine - 1);
        }
        node_->SetVisibleRange(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first + 1));
    }

    boost::intrusive_ptr<UI_ListView> node_;
    ListRowsModel* model_;
    QTreeView* tree_;
    QListView* icons_;
    std::vector<fluxui::controls::ListColumn> presentedColumns_;
    std::vector<std::size_t> presentedSelection_;
    bool syncing_ = false;
    bool rangeQueued_ = false;
};

class ListViewBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        return new ListViewWidget(NodeAs<UI_ListView>(node), parent);
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        auto& list = static_cast<ListViewWidget&>(widget);
        ApplyFontSize(list, NodeAs<UI_ListView>(node));
        list.Sync();
    }
};

} // namespace

BuilderPtr MakeListViewBuilder() {
    return std::make_shared<ListViewBuilder>();
}

} // namespace igd::qt
