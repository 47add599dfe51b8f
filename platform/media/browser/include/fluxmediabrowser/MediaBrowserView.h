#pragma once
// The media browser as a toolkit view: a bar of buttons and a search field above, the directory
// list on the left, the media view (list or icons) on the right, the preview player under it.
// A presenter shows it like any view; everything it knows lives in its model.
#include <memory>
#include <string>

#include "Browse/ProviderWrapper.h"
#include "Fnd/InterfaceRef.h"
#include "Fnd/Listener.h"
#include "Proj/IProject.h"
#include "fluxcore/RefCountedObject.h"
#include "fluxmediabrowser/MediaBrowserConfiguration.h"
#include "fluxmediabrowser/MediaBrowserModel.h"
#include "fluxui/controls/UI_ControlView.h"
#include "fluxui/ui/UI_SubView.h"

namespace fluxmediabrowser {

// Ids of the browser's controls, for tests and scripted runs.
inline constexpr const char* kDirectoryListID = "MediaBrowserDirectoryList";
inline constexpr const char* kMediaViewID = "MediaBrowserMediaView";
inline constexpr const char* kSearchFieldID = "MediaBrowserSearch";
inline constexpr const char* kPathTextID = "MediaBrowserPath";
inline constexpr const char* kParentButtonID = "MediaBrowserParentButton";
inline constexpr const char* kFavoriteButtonID = "MediaBrowserFavoriteButton";
inline constexpr const char* kListViewButtonID = "MediaBrowserListViewButton";
inline constexpr const char* kIconViewButtonID = "MediaBrowserIconViewButton";
inline constexpr const char* kCheckAllButtonID = "MediaBrowserCheckAllButton";
inline constexpr const char* kUncheckAllButtonID = "MediaBrowserUncheckAllButton";
inline constexpr const char* kColumnsPopupID = "MediaBrowserColumnsPopup";
inline constexpr const char* kPlayerAreaID = "MediaBrowserPlayer";

class MediaBrowserView : public fluxui::ui::UI_SubView {
public:
    // contextID names the command context of the host ("ingestdialog"). withPlayer: a preview
    // player under the media view for the selected clip. remembersState: the view mode and
    // columns are read from and kept in the preferences.
    MediaBrowserView(Fnd::InterfaceRef<Proj::IProject> project, std::string contextID,
                     MediaBrowserConfiguration configuration, bool withPlayer, bool remembersState);
    ~MediaBrowserView() override;
    const char* UI_GetClassName() const override { return "MediaBrowserView"; }

    // The station the check status is posted on; unique per browser.
    const Fnd::StationID& GetStationID() const;

    void GetChecked(CheckedPairs& checked, ClipSettings& clipSettings) const;
    // The directory shown goes to the head of the recent directories.
    void OnNewRecentDirectory();
    const Browse::ProviderWrapper* GetCurrentProvider() const;
    Fnd::WString GetCurrentDirPath() const;
    // Opens a directory, as a click in the directory list does.
    void OpenDirectory(const Fnd::WString& directory);

    // The commands of the host's context.
    void OnSelectDirectoryList();
    void OnSelectMediaView();
    void OnClearRecentDirectories();
    void OnSearch();
    void OnEditColumns();
    void SetSelectedItemsCheck();
    void OnSelectAll();
    void OnDeselectAll();
    void OnCheckAllButtonClicked(const fluxui::controls::UI_ControlMessage* message);
    void OnUnCheckAllButtonClicked(const fluxui::controls::UI_ControlMessage* message);
    void OnListViewButtonClicked(const fluxui::controls::UI_ControlMessage* message);
    void OnIconViewButtonClicked(const fluxui::controls::UI_ControlMessage* message);

    MediaBrowserModel& GetModel();
    const MediaBrowserModel& GetModel() const;

    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

using MediaBrowserViewRef = boost::intrusive_ptr<MediaBrowserView>;

} // namespace fluxmediabrowser
