#pragma once
// A list of rows in columns, or a grid of pictures with a caption: the media view and the
// directory list of a browser. Rows carry their own text, tick and picture; the view knows
// nothing of what they stand for. A presenter shows thousands of rows, so changes are told row
// by row: the presenter takes the rows changed since it last looked and updates only those.
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Fnd/WString.h"
#include "fluxui/controls/UI_ControlView.h"

namespace fluxui::controls {

enum class ListViewMode { List, Icons };

struct ListColumn {
    std::string key;      // stable name, e.g. "duration"
    Fnd::WString title;   // header text
    float width = 100.0f; // units, in list mode
};

struct ListRow {
    std::string key;                 // stable identity among the rows, e.g. the path
    std::vector<Fnd::WString> cells; // one per column, in the order of the columns
    bool checkable = false;
    bool checked = false;
    bool folder = false; // drawn with a folder picture when it has none of its own
    // PNG bytes of the row's picture (a thumbnail); null draws the kind's standard picture.
    std::shared_ptr<const std::vector<std::uint8_t>> picture;

    bool operator==(const ListRow&) const = default;
};

// What changed in the rows since a presenter last took the changes.
struct ListRowChanges {
    bool reset = false;               // the rows were replaced: present them all again
    std::vector<std::size_t> rows;    // rows whose content changed (without reset), ascending
};

class UI_ListView : public UI_ControlView {
public:
    using RowFunction = std::function<void(std::size_t row)>;
    using CheckFunction = std::function<void(std::size_t row, bool checked)>;
    using RangeFunction = std::function<void(std::size_t first, std::size_t count)>;

    const char* UI_GetClassName() const override { return "UI_ListView"; }

    void SetMode(ListViewMode mode);
    ListViewMode GetMode() const { return mode_; }
    // Edge of the square a picture is drawn in, in icon mode, in units.
    void SetIconSize(float size);
    float GetIconSize() const { return iconSize_; }
    // A header row of column titles in list mode.
    void SetShowsHeader(bool shows);
    bool ShowsHeader() const { return showsHeader_; }

    void SetColumns(std::vector<ListColumn> columns);
    const std::vector<ListColumn>& GetColumns() const { return columns_; }

    // Replaces every row; the selection is cleared.
    void SetRows(std::vector<ListRow> rows);
    // Appends rows at the end, as a listing arrives.
    void AppendRows(std::vector<ListRow> rows);
    // Changes one row in place; an equal row tells nobody.
    void UpdateRow(std::size_t index, ListRow row);
    const std::vector<ListRow>& GetRows() const { return rows_; }
    std::size_t GetRowCount() const { return rows_.size(); }
    // The changes since the last call; the presenter calls it when told of a value change.
    ListRowChanges TakeRowChanges();

    // Ticks a checkable row. interactive: the person clicked the box; the check function hears
    // both, the program's changes too.
    void SetRowChecked(std::size_t index, bool checked, bool interactive = false);

    // Selected rows, ascending, without duplicates.
    void SetSelection(std::vector<std::size_t> rows, bool interactive = false);
    const std::vector<std::size_t>& GetSelection() const { return selection_; }

    // The person double-clicked a row or pressed Return on it.
    void Activate(std::size_t index);
    // The presenter tells which rows are on screen, so that slow work can do those first.
    void SetVisibleRange(std::size_t first, std::size_t count);
    std::size_t GetFirstVisibleRow() const { return firstVisible_; }
    std::size_t GetVisibleRowCount() const { return visibleCount_; }

    void NotifyWhenChecked(CheckFunction function) { checked_ = std::move(function); }
    void NotifyWhenSelectionChanged(std::function<void()> function) { selectionChanged_ = std::move(function); }
    void NotifyWhenActivated(RowFunction function) { activated_ = std::move(function); }
    void NotifyWhenVisibleRangeChanged(RangeFunction function) { visibleRange_ = std::move(function); }

private:
    void MarkRowChanged(std::size_t index);

    ListViewMode mode_ = ListViewMode::List;
    float iconSize_ = 96.0f;
    bool showsHeader_ = true;
    std::vector<ListColumn> columns_;
    std::vector<ListRow> rows_;
    std::vector<std::size_t> selection_;
    ListRowChanges pending_{true, {}};
    std::size_t firstVisible_ = 0;
    std::size_t visibleCount_ = 0;
    CheckFunction checked_;
    std::function<void()> selectionChanged_;
    RowFunction activated_;
    RangeFunction visibleRange_;
};

} // namespace fluxui::controls
