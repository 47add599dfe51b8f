#include "fluxui/controls/UI_ListView.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace fluxui::controls {
namespace {

void CheckIndex(std::size_t index, std::size_t count, const char* what) {
    if (index >= count)
        throw std::out_of_range(std::string("UI_ListView::") + what + ": row " + std::to_string(index) +
                                " of " + std::to_string(count));
}

} // namespace

void UI_ListView::SetMode(ListViewMode mode) {
    if (mode == mode_)
        return;
    mode_ = mode;
    NotifyObserver(ui::NodeChange::Appearance);
}

void UI_ListView::SetIconSize(float size) {
    if (size == iconSize_)
        return;
    iconSize_ = size;
    NotifyObserver(ui::NodeChange::Appearance);
}

void UI_ListView::SetShowsHeader(bool shows) {
    if (shows == showsHeader_)
        return;
    showsHeader_ = shows;
    NotifyObserver(ui::NodeChange::Appearance);
}

void UI_ListView::SetColumns(std::vector<ListColumn> columns) {
    const bool same = columns.size() == columns_.size() &&
                      std::equal(columns.begin(), columns.end(), columns_.begin(),
                                 [](const ListColumn& a, const ListColumn& b) {
                                     return a.key == b.key && a.title == b.title && a.width == b.width;
                                 });
    if (same)
        return;
    columns_ = std::move(columns);
    NotifyObserver(ui::NodeChange::Appearance);
}

void UI_ListView::SetRows(std::vector<ListRow> rows) {
    rows_ = std::move(rows);
    pending_ = {true, {}};
    const bool hadSelection = !selection_.empty();
    selection_.clear();
    NotifyObserver(ui::NodeChange::Value);
    if (hadSelection && selectionChanged_)
        selectionChanged_();
}

void UI_ListView::AppendRows(std::vector<ListRow> rows) {
    if (rows.empty())
        return;
    const std::size_t first = rows_.size();
    rows_.reserve(first + rows.size());
    std::move(rows.begin(), rows.end(), std::back_inserter(rows_));
    if (!pending_.reset)
        for (std::size_t i = first; i < rows_.size(); ++i)
            pending_.rows.push_back(i);
    NotifyObserver(ui::NodeChange::Value);
}

void UI_ListView::UpdateRow(std::size_t index, ListRow row) {
    CheckIndex(index, rows_.size(), "UpdateRow");
    if (rows_[index] == row)
        return;
    rows_[index] = std::move(row);
    MarkRowChanged(index);
    NotifyObserver(ui::NodeChange::Value);
}

// Marked rows stay ascending and unique so the presenter can walk them once; updates mostly come
// in ascending order, so the search is short.
void UI_ListView::MarkRowChanged(std::size_t index) {
    if (pending_.reset)
        return;
    auto& marked = pending_.rows;
    const auto at = std::lower_bound(marked.begin(), marked.end(), index);
    if (at == marked.end() || *at != index)
        marked.insert(at, index);
}

ListRowChanges UI_ListView::TakeRowChanges() {
    ListRowChanges taken = std::move(pending_);
    pending_ = {};
    return taken;
}

void UI_ListView::SetRowChecked(std::size_t index, bool checked, bool interactive) {
    CheckIndex(index, rows_.size(), "SetRowChecked");
    ListRow& row = rows_[index];
    if (!row.checkable || row.checked == checked)
        return;
    row.checked = checked;
    MarkRowChanged(index);
    if (checked_)
        checked_(index, checked);
    Changed(interactive);
}

void UI_ListView::SetSelection(std::vector<std::size_t> rows, bool interactive) {
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    if (!rows.empty())
        CheckIndex(rows.back(), rows_.size(), "SetSelection");
    if (rows == selection_)
        return;
    selection_ = std::move(rows);
    NotifyObserver(ui::NodeChange::Value);
    if (selectionChanged_)
        selectionChanged_();
    if (interactive)
        Changed(true);
}

void UI_ListView::Activate(std::size_t index) {
    CheckIndex(index, rows_.size(), "Activate");
    if (activated_)
        activated_(index);
}

void UI_ListView::SetVisibleRange(std::size_t first, std::size_t count) {
    if (first == firstVisible_ && count == visibleCount_)
        return;
    firstVisible_ = first;
    visibleCount_ = count;
    if (visibleRange_)
        visibleRange_(first, count);
}

} // namespace fluxui::controls
