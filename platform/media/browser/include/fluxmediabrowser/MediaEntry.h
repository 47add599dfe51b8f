#pragma once
#include <cstdint>
#include <memory>
#include <optional>

#include "Fnd/WString.h"
#include "Mid/FrameService.h"
#include "fluxmediabrowser/TranscodeClipSetting.h"

namespace fluxmediabrowser {

// One entry of the media view: a clip of a card, or a media file or folder of a plain folder.
struct MediaEntry {
    Fnd::WString path;        // full path: a clip's media file, or the file or folder itself
    Fnd::WString entryName;   // its name in the provider's content, relative to the directory shown
    Fnd::WString displayName; // as the provider names it
    bool folder = false;
    std::uint64_t sizeBytes = 0;   // of every file of a card clip together
    std::int64_t modifiedTime = 0; // seconds since the epoch, of the media file
    // Filled in off the UI thread as the frame service answers.
    std::optional<Mid::ClipFacts> facts;
    bool factsUnavailable = false; // the frame service has none: the entry shows name and size
    std::shared_ptr<const Mid::FrameImage> thumbnail;
    bool checked = false;
    TranscodeClipSetting marks; // in and out points set in the player
};

// Columns of the list view, in their standard order.
enum class MediaColumn { Name, Duration, FrameRate, Size, VideoCodec, StartTimecode, Date, Resolution, Audio };

struct MediaColumnInfo {
    MediaColumn column;
    const char* key;         // stable name stored in preferences, e.g. "duration"
    const char* titleString; // "$$$/..." localisation string with its English default
};
const std::vector<MediaColumnInfo>& AllMediaColumns();

// The text of a cell: "" while the facts are not known; a folder shows only name and date.
Fnd::WString MediaColumnText(const MediaEntry& entry, MediaColumn column);

} // namespace fluxmediabrowser
