#include "MediaRows.h"

#include <algorithm>

#include "Fnd/WString.h"
#include "fluxcore/ZString.h"

namespace fluxmediabrowser {
namespace {

const MediaColumnInfo& InfoOf(MediaColumn column) {
    for (const MediaColumnInfo& info : AllMediaColumns())
        if (info.column == column)
            return info;
    throw std::logic_error("fluxmediabrowser: a column without its description");
}

// Wide enough for the longest usual value of each column; the person can widen them.
float WidthOf(MediaColumn column) {
    switch (column) {
    case MediaColumn::Name:
        return 240.0f;
    case MediaColumn::Date:
        return 140.0f;
    case MediaColumn::StartTimecode:
    case MediaColumn::Resolution:
    case MediaColumn::Audio:
        return 100.0f;
    default:
        return 80.0f;
    }
}

} // namespace

fluxui::controls::ListRow MakeMediaRow(const MediaEntry& entry, const std::vector<MediaColumn>& columns) {
    fluxui::controls::ListRow row;
    row.key = Fnd::ToUTF8(entry.path);
    row.cells.reserve(columns.size());
    for (MediaColumn column : columns)
        row.cells.push_back(MediaColumnText(entry, column));
    row.checkable = true;
    row.checked = entry.checked;
    row.folder = entry.folder;
    if (entry.thumbnail && !entry.thumbnail->png.empty())
        // Shares the thumbnail: the row holds its bytes without a copy, and the same thumbnail
        // stays the same picture to the presenter, which decodes it once.
        row.picture = std::shared_ptr<const std::vector<std::uint8_t>>(entry.thumbnail, &entry.thumbnail->png);
    return row;
}

std::vector<fluxui::controls::ListColumn> MakeListColumns(const std::vector<MediaColumn>& columns) {
    std::vector<fluxui::controls::ListColumn> listColumns;
    for (MediaColumn column : columns) {
        const MediaColumnInfo& info = InfoOf(column);
        listColumns.push_back({info.key, fluxcore::Localize(info.titleString), WidthOf(column)});
    }
    return listColumns;
}

std::vector<MediaColumn> ToggleColumn(const std::vector<MediaColumn>& columns, MediaColumn column) {
    if (column == MediaColumn::Name)
        return columns;
    const bool shown = std::find(columns.begin(), columns.end(), column) != columns.end();
    std::vector<MediaColumn> toggled;
    for (const MediaColumnInfo& info : AllMediaColumns()) {
        const bool had = std::find(columns.begin(), columns.end(), info.column) != columns.end();
        if (info.column == column ? !shown : had)
            toggled.push_back(info.column);
    }
    return toggled;
}

Fnd::WString ColumnKeys(const std::vector<MediaColumn>& columns) {
    std::string keys;
    for (MediaColumn column : columns) {
        if (!keys.empty())
            keys += ',';
        keys += InfoOf(column).key;
    }
    return Fnd::FromUTF8(keys);
}

std::vector<MediaColumn> ColumnsFromKeys(const Fnd::WString& keys) {
    const std::string text = Fnd::ToUTF8(keys);
    std::vector<MediaColumn> columns{MediaColumn::Name};
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t end = std::min(text.find(',', start), text.size());
        const std::string key = text.substr(start, end - start);
        for (const MediaColumnInfo& info : AllMediaColumns())
            if (key == info.key && std::find(columns.begin(), columns.end(), info.column) == columns.end())
                columns.push_back(info.column);
        start = end + 1;
    }
    return columns;
}

} // namespace fluxmediabrowser
