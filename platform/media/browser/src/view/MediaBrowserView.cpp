#include "fluxmediabrowser/MediaBrowserView.h"

#include <algorithm>
#include <atomic>
#include <limits>

#include "BrowserBar.h"
#include "BrowserViewState.h"
#include "MediaRows.h"
#include "PlaceRows.h"
#include "PreviewPlayer.h"
#include "fluxcore/ZString.h"
#include "fluxmediabrowser/FavoritesPref.h"
#include "fluxmediabrowser/Places.h"
#include "fluxui/controls/UI_ListView.h"

namespace fluxmediabrowser {
namespace {

using fluxui::controls::ListViewMode;
using fluxui::controls::UI_ListView;

constexpr float kDirectoryListWidth = 200.0f;
constexpr float kPlayerShare = 0.4f;
constexpr float kIconSize = 120.0f;
constexpr std::size_t kNoRow = std::numeric_limits<std::size_t>::max();

Fnd::StationID NextStationID() {
    static std::atomic<unsigned> next{1};
    return Fnd::StationID("MediaBrowser-" + std::to_string(next++));
}

boost::intrusive_ptr<UI_ListView> AddList(fluxui::ui::UI_SubView& parent, const char* id) {
    boost::intrusive_ptr<UI_ListView> list(new UI_ListView);
    list->UI_SetNodeID(id);
    list->SetWantsKeyboardFocus(true);
    parent.ChildPushBack(list);
    return list;
}

} // namespace

class MediaBrowserView::Impl {
public:
    Impl(MediaBrowserView& view, MediaBrowserConfiguration configuration, bool withPlayer, bool remembersState)
        : station_(NextStationID()), model_(station_), bar_(view),
          directoryList_(AddList(view, kDirectoryListID)), mediaView_(AddList(view, kMediaViewID)),
          remembersState_(remembersState) {
        if (withPlayer)
            player_ = std::make_unique<PreviewPlayer>(view, model_);
        if (configuration.lightEditor)
            model_.SetColumns({MediaColumn::Name, MediaColumn::Duration, MediaColumn::Size});
        if (remembersState) {
            const BrowserViewState state = ReadBrowserViewState();
            if (state.mode)
                mediaView_->SetMode(*state.mode);
            if (state.columns)
                model_.SetColumns(*state.columns);
        }
        mediaView_->SetIconSize(kIconSize);
        directoryList_->SetShowsHeader(false);
        // Narrower than the list: the last column stretches to fill it, and a column as wide as
        // the list would leave room for a scroll bar only.
        directoryList_->SetColumns({{"name", fluxcore::Localize("$$$/MediaBrowser/Places=Places"), kDirectoryListWidth / 2}});
        RefreshPlaces();
        ShowColumns();
        ShowMode();
        WireBar();
        WireLists();
        model_.SetChangeFunction([this](const MediaModelChange& change) { ModelChanged(change); });
    }

    MediaBrowserModel& Model() { return model_; }
    const Fnd::StationID& Station() const { return station_; }

    void Layout(const fluxcore::geom::RectF& rect) {
        bar_.Layout({0.0f, 0.0f, rect.width, kBarHeight});
        const float below = std::max(0.0f, rect.height - kBarHeight);
        const float listWidth = std::min(kDirectoryListWidth, rect.width * 0.25f);
        directoryList_->UI_SetLocalRectF({0.0f, kBarHeight, listWidth, below});
        const float mediaWidth = std::max(0.0f, rect.width - listWidth);
        const float playerHeight = player_ ? below * kPlayerShare : 0.0f;
        mediaView_->UI_SetLocalRectF({listWidth, kBarHeight, mediaWidth, below - playerHeight});
        if (player_)
            player_->Layout({listWidth, kBarHeight + below - playerHeight, mediaWidth, playerHeight});
    }

    void OpenDirectory(const Fnd::WString& directory) { model_.OpenDirectory(directory); }

    void RefreshPlaces() {
        places_ = ListPlaces();
        directoryList_->SetRows(MakePlaceRows(places_));
        MarkCurrentPlace();
    }

    void FocusDirectoryList() { directoryList_->UI_GainKeyboardFocus(); }
    void FocusMediaView() { mediaView_->UI_GainKeyboardFocus(); }
    void FocusSearch() { bar_.searchField->UI_GainKeyboardFocus(); }
    void FocusColumns() { bar_.columnsPopup->UI_GainKeyboardFocus(); }

    void SetMode(ListViewMode mode) {
        if (mode == mediaView_->GetMode())
            return;
        mediaView_->SetMode(mode);
        ShowMode();
        if (remembersState_)
            WriteBrowserViewMode(mode);
    }

private:
    void WireBar() {
        bar_.parentButton->NotifyWhenChanged([this](const auto&) { model_.OpenParentDirectory(); });
        bar_.favoriteButton->NotifyWhenChanged([this](const auto&) { ToggleFavorite(); });
        bar_.listButton->NotifyWhenChanged([this](const auto&) { SetMode(ListViewMode::List); });
        bar_.iconButton->NotifyWhenChanged([this](const auto&) { SetMode(ListViewMode::Icons); });
        bar_.checkAllButton->NotifyWhenChanged([this](const auto&) { model_.CheckAll(); });
        bar_.uncheckAllButton->NotifyWhenChanged([this](const auto&) { model_.UncheckAll(); });
        bar_.searchField->NotifyWhenChanged([this](const auto&) { model_.SetSearchText(bar_.searchField->GetValue()); });
        bar_.columnsPopup->NotifyWhenChanged([this](const fluxui::controls::UI_ControlMessage& message) {
            // The first item is the popup's title; each other one stands for a column.
            const int chosen = bar_.columnsPopup->GetValue();
            if (!message.IsInteractive() || chosen < 1)
                return;
            const MediaColumn column = AllMediaColumns()[static_cast<std::size_t>(chosen - 1)].column;
            model_.SetColumns(ToggleColumn(model_.GetColumns(), column));
            if (remembersState_)
                WriteBrowserColumns(model_.GetColumns());
            ShowColumns();
        });
    }

    void WireLists() {
        mediaView_->NotifyWhenChecked([this](std::size_t row, bool checked) {
            if (const std::size_t entry = EntryOfRow(row); entry != kNoRow)
                model_.SetChecked(entry, checked);
        });
        mediaView_->NotifyWhenSelectionChanged([this] {
            if (syncingSelection_)
                return;
            std::vector<std::size_t> entries;
            for (std::size_t row : mediaView_->GetSelection())
                if (const std::size_t entry = EntryOfRow(row); entry != kNoRow)
                    entries.push_back(entry);
            model_.SetSelection(std::move(entries));
        });
        mediaView_->NotifyWhenActivated([this](std::size_t row) {
            const std::size_t entry = EntryOfRow(row);
            // A copy: opening replaces the entries the path is read from.
            if (entry != kNoRow && model_.Entries()[entry].folder)
                model_.OpenDirectory(Fnd::WString(model_.Entries()[entry].path));
        });
        mediaView_->NotifyWhenVisibleRangeChanged(
            [this](std::size_t first, std::size_t count) { model_.SetVisibleRange(first, count); });

        // A click on a place opens it; the program's own marking of the place shown does not.
        directoryList_->NotifyWhenChanged([this](const fluxui::controls::UI_ControlMessage& message) {
            const auto& selection = directoryList_->GetSelection();
            if (message.IsInteractive() && selection.size() == 1)
                OpenPlace(selection.front());
        });
        directoryList_->NotifyWhenActivated([this](std::size_t row) { OpenPlace(row); });
    }

    void ToggleFavorite() {
        const Fnd::WString& current = model_.GetCurrentDirPath();
        if (current.empty())
            return;
        std::vector<Fnd::WString>& favorites = FavoriteDirectories();
        if (const auto found = std::find(favorites.begin(), favorites.end(), current); found != favorites.end())
            favorites.erase(found);
        else
            favorites.push_back(current);
        WriteFavoritesPref();
        RefreshPlaces();
        ShowFavorite();
    }

    void ShowFavorite() {
        const std::vector<Fnd::WString>& favorites = FavoriteDirectories();
        const bool favorite = std::find(favorites.begin(), favorites.end(), model_.GetCurrentDirPath()) != favorites.end();
        bar_.favoriteButton->SetText(favorite ? u"\u2605" : u"\u2606");
        bar_.favoriteButton->UI_SetToolTip(
            favorite ? fluxcore::Localize("$$$/MediaBrowser/RemoveFavoriteTip=Take this folder out of the favourites")
                     : fluxcore::Localize("$$$/MediaBrowser/AddFavoriteTip=Add this folder to the favourites"));
    }

    void OpenPlace(std::size_t row) {
        if (row < places_.size() && places_[row].path != model_.GetCurrentDirPath())
            model_.OpenDirectory(Fnd::WString(places_[row].path));
    }

    void MarkCurrentPlace() {
        const Fnd::WString& current = model_.GetCurrentDirPath();
        std::vector<std::size_t> selection;
        for (std::size_t i = 0; i < places_.size(); ++i)
            if (places_[i].path == current) {
                selection.push_back(i);
                break;
            }
        directoryList_->SetSelection(std::move(selection));
    }

    void ShowMode() {
        const bool icons = mediaView_->GetMode() == ListViewMode::Icons;
        bar_.listButton->SetDownState(!icons);
        bar_.iconButton->SetDownState(icons);
    }

    void ShowColumns() {
        const std::vector<MediaColumn>& columns = model_.GetColumns();
        mediaView_->SetColumns(MakeListColumns(columns));
        fluxui::controls::UI_Popup& popup = *bar_.columnsPopup;
        popup.DeleteAllItems();
        popup.AddItem(fluxcore::Localize("$$$/MediaBrowser/Columns=Columns"));
        for (const MediaColumnInfo& info : AllMediaColumns()) {
            const bool shown = std::find(columns.begin(), columns.end(), info.column) != columns.end();
            const int item = popup.AddItem((shown ? u"\u2713 " : u"\u2003 ") + fluxcore::Localize(info.titleString));
            if (info.column == MediaColumn::Name)
                popup.DisableItem(item, true);
        }
        popup.SetValue(0);
    }

    std::size_t EntryOfRow(std::size_t row) const {
        const auto& shown = model_.ShownEntries();
        return row < shown.size() ? shown[row] : kNoRow;
    }

    void ModelChanged(const MediaModelChange& change) {
        switch (change.kind) {
        case MediaModelChange::Kind::Reset:
            ShowAllRows();
            bar_.pathText->SetValue(model_.GetCurrentDirPath());
            ShowFavorite();
            // Cards come and go and the favourites are read after the view is made: the places
            // are read again each time another folder opens.
            RefreshPlaces();
            ShowSelection();
            break;
        case MediaModelChange::Kind::Appended:
            AppendRows();
            break;
        case MediaModelChange::Kind::Entries:
            for (std::size_t entry : change.entries)
                if (entry < rowOfEntry_.size() && rowOfEntry_[entry] != kNoRow)
                    mediaView_->UpdateRow(rowOfEntry_[entry], MakeMediaRow(model_.Entries()[entry], model_.GetColumns()));
            break;
        case MediaModelChange::Kind::Selection:
            ShowSelection();
            break;
        case MediaModelChange::Kind::Columns:
            ShowColumns();
            ShowAllRows();
            ShowSelection();
            break;
        case MediaModelChange::Kind::Listed:
            AppendRows();
            break;
        }
    }

    void ShowAllRows() {
        rowOfEntry_.assign(model_.Entries().size(), kNoRow);
        std::vector<fluxui::controls::ListRow> rows;
        rows.reserve(model_.ShownEntries().size());
        for (std::size_t entry : model_.ShownEntries()) {
            rowOfEntry_[entry] = rows.size();
            rows.push_back(MakeMediaRow(model_.Entries()[entry], model_.GetColumns()));
        }
        syncingSelection_ = true;
        mediaView_->SetRows(std::move(rows));
        syncingSelection_ = false;
    }

    // Entries that arrived at the end of the listing, as far as the search lets them through.
    void AppendRows() {
        const auto& shown = model_.ShownEntries();
        const std::size_t present = mediaView_->GetRowCount();
        if (shown.size() < present) {
            ShowAllRows();
            return;
        }
        rowOfEntry_.resize(model_.Entries().size(), kNoRow);
        std::vector<fluxui::controls::ListRow> rows;
        rows.reserve(shown.size() - present);
        for (std::size_t row = present; row < shown.size(); ++row) {
            rowOfEntry_[shown[row]] = row;
            rows.push_back(MakeMediaRow(model_.Entries()[shown[row]], model_.GetColumns()));
        }
        mediaView_->AppendRows(std::move(rows));
    }

    void ShowSelection() {
        std::vector<std::size_t> rows;
        for (std::size_t entry : model_.GetSelection())
            if (entry < rowOfEntry_.size() && rowOfEntry_[entry] != kNoRow)
                rows.push_back(rowOfEntry_[entry]);
        syncingSelection_ = true;
        mediaView_->SetSelection(std::move(rows));
        syncingSelection_ = false;
        if (player_)
            player_->FollowSelection();
    }

    Fnd::StationID station_;
    MediaBrowserModel model_;
    BrowserBar bar_;
    boost::intrusive_ptr<UI_ListView> directoryList_;
    boost::intrusive_ptr<UI_ListView> mediaView_;
    std::unique_ptr<PreviewPlayer> player_;
    bool remembersState_;
    std::vector<Place> places_;
    std::vector<std::size_t> rowOfEntry_; // row of each entry of the model, kNoRow when not shown
    bool syncingSelection_ = false;
};

MediaBrowserView::MediaBrowserView(Fnd::InterfaceRef<Proj::IProject> project, std::string contextID,
                                   MediaBrowserConfiguration configuration, bool withPlayer, bool remembersState) {
    UI_SetLayoutsChildren(false);
    impl_ = std::make_unique<Impl>(*this, configuration, withPlayer, remembersState);
}

MediaBrowserView::~MediaBrowserView() = default;

const Fnd::StationID& MediaBrowserView::GetStationID() const { return impl_->Station(); }

void MediaBrowserView::GetChecked(CheckedPairs& checked, ClipSettings& clipSettings) const {
    impl_->Model().GetChecked(checked, clipSettings);
}

void MediaBrowserView::OnNewRecentDirectory() {
    const Fnd::WString& directory = impl_->Model().GetCurrentDirPath();
    if (directory.empty())
        return;
    AddRecentDirectory(directory);
    impl_->RefreshPlaces();
}

const Browse::ProviderWrapper* MediaBrowserView::GetCurrentProvider() const {
    return impl_->Model().GetCurrentProvider();
}

Fnd::WString MediaBrowserView::GetCurrentDirPath() const { return impl_->Model().GetCurrentDirPath(); }

void MediaBrowserView::OpenDirectory(const Fnd::WString& directory) { impl_->OpenDirectory(directory); }

void MediaBrowserView::OnSelectDirectoryList() { impl_->FocusDirectoryList(); }
void MediaBrowserView::OnSelectMediaView() { impl_->FocusMediaView(); }

void MediaBrowserView::OnClearRecentDirectories() {
    RecentDirectories().clear();
    impl_->RefreshPlaces();
}

void MediaBrowserView::OnSearch() { impl_->FocusSearch(); }
// The columns popup takes the keyboard focus: its list opens from there, as it does on a click.
void MediaBrowserView::OnEditColumns() { impl_->FocusColumns(); }
void MediaBrowserView::SetSelectedItemsCheck() { impl_->Model().CheckSelected(); }
void MediaBrowserView::OnSelectAll() { impl_->Model().SelectAll(); }
void MediaBrowserView::OnDeselectAll() { impl_->Model().DeselectAll(); }

void MediaBrowserView::OnCheckAllButtonClicked(const fluxui::controls::UI_ControlMessage*) {
    impl_->Model().CheckAll();
}
void MediaBrowserView::OnUnCheckAllButtonClicked(const fluxui::controls::UI_ControlMessage*) {
    impl_->Model().UncheckAll();
}
void MediaBrowserView::OnListViewButtonClicked(const fluxui::controls::UI_ControlMessage*) {
    impl_->SetMode(ListViewMode::List);
}
void MediaBrowserView::OnIconViewButtonClicked(const fluxui::controls::UI_ControlMessage*) {
    impl_->SetMode(ListViewMode::Icons);
}

MediaBrowserModel& MediaBrowserView::GetModel() { return impl_->Model(); }
const MediaBrowserModel& MediaBrowserView::GetModel() const { return impl_->Model(); }

void MediaBrowserView::UI_SizeChanged(const fluxcore::geom::RectF& localRect) {
    UI_SubView::UI_SizeChanged(localRect);
    impl_->Layout(localRect);
}

} // namespace fluxmediabrowser
