#pragma once
// The preferences the Ingest dialog keeps, and the ids a host or a replay finds its parts by.
#include "Proj/IPreferences.h"

namespace IGD {

inline const Proj::PreferenceKey kDialogLeftKey{"IngestDialog.mainDialog.Left"};
inline const Proj::PreferenceKey kDialogTopKey{"IngestDialog.mainDialog.Top"};
inline const Proj::PreferenceKey kDialogWidthKey{"IngestDialog.mainDialog.Width"};
inline const Proj::PreferenceKey kDialogHeightKey{"IngestDialog.mainDialog.Height"};
// The media pane's share of the width, a fraction.
inline const Proj::PreferenceKey kSplitterPercentKey{"IngestDialog.mainDialog.SplitterPercent"};
// The host's player starts a clip as soon as it is selected; off while the dialog is open.
inline const Proj::PreferenceKey kHostAutoPlayKey{"Player.AutoPlayOnSelection"};

inline constexpr const char* kTopViewID = "IngestTopView";
inline constexpr const char* kSettingViewID = "IngestSettingView";
inline constexpr const char* kSplitterID = "IngestSplitter";

} // namespace IGD
