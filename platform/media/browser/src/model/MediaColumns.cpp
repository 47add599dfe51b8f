#include <cmath>
#include <cstdio>

#include "Fnd/LocalTimeFormatter.h"
#include "fluxmediabrowser/MediaEntry.h"

namespace fluxmediabrowser {
namespace {

Fnd::WString Printed(const char* format, auto... values) {
    char text[64];
    std::snprintf(text, sizeof text, format, values...);
    return Fnd::FromASCII(text);
}

// Up to two decimals, without trailing zeros: 25, 29.97, 23.98.
Fnd::WString Decimal(double value) {
    Fnd::WString text = Printed("%.2f", value);
    while (text.back() == u'0')
        text.pop_back();
    if (text.back() == u'.')
        text.pop_back();
    return text;
}

Fnd::WString DurationText(const Mid::ClipFacts& facts) {
    if (facts.durationSeconds <= 0)
        return {};
    // Timecode style with the frames when the clip has a frame rate, as editors count.
    const double rate = facts.frameRateNum > 0 && facts.frameRateDen > 0
                            ? double(facts.frameRateNum) / facts.frameRateDen
                            : 0;
    const long long base = std::llround(rate);
    if (base > 0) {
        const long long frames = facts.frameCount > 0 ? facts.frameCount : std::llround(facts.durationSeconds * rate);
        return Printed("%02lld:%02lld:%02lld:%02lld", frames / base / 3600, frames / base / 60 % 60,
                       frames / base % 60, frames % base);
    }
    const long long seconds = std::llround(facts.durationSeconds);
    return Printed("%02lld:%02lld:%02lld", seconds / 3600, seconds / 60 % 60, seconds % 60);
}

// Decimal units, as the file managers of this platform count.
Fnd::WString SizeText(std::uint64_t bytes) {
    static const char* const kUnits[] = {"KB", "MB", "GB", "TB"};
    if (bytes < 1000)
        return Printed("%llu B", static_cast<unsigned long long>(bytes));
    double value = double(bytes) / 1000;
    std::size_t unit = 0;
    while (value >= 999.95 && unit + 1 < std::size(kUnits)) {
        value /= 1000;
        ++unit;
    }
    return Printed("%.1f %s", value, kUnits[unit]);
}

Fnd::WString DateText(std::int64_t seconds) {
    if (seconds <= 0)
        return {};
    // The locale is looked up once per thread, not once per cell.
    thread_local Fnd::LocalTimeFormatter formatter;
    return formatter.Format(Fnd::Date::FromSeconds(seconds), u"%Y-%m-%d %H:%M");
}

Fnd::WString FactText(const Mid::ClipFacts& facts, MediaColumn column) {
    switch (column) {
    case MediaColumn::Duration:
        return DurationText(facts);
    case MediaColumn::FrameRate:
        if (facts.frameRateNum <= 0 || facts.frameRateDen <= 0)
            return {};
        return Decimal(double(facts.frameRateNum) / facts.frameRateDen) + u" fps";
    case MediaColumn::VideoCodec:
        return Fnd::FromUTF8(facts.videoCodec);
    case MediaColumn::StartTimecode:
        return Fnd::FromUTF8(facts.startTimecode);
    case MediaColumn::Resolution:
        if (facts.width <= 0 || facts.height <= 0)
            return {};
        return Printed("%d x %d", facts.width, facts.height);
    case MediaColumn::Audio:
        if (facts.audioCodec.empty())
            return {};
        return Fnd::FromUTF8(facts.audioCodec) +
               (facts.audioChannels > 0 ? Printed(", %d ch", facts.audioChannels) : Fnd::WString());
    default:
        return {};
    }
}

} // namespace

const std::vector<MediaColumnInfo>& AllMediaColumns() {
    static const std::vector<MediaColumnInfo> columns{
        {MediaColumn::Name, "name", "$$$/MediaBrowser/Column/Name=Name"},
        {MediaColumn::Duration, "duration", "$$$/MediaBrowser/Column/Duration=Duration"},
        {MediaColumn::FrameRate, "framerate", "$$$/MediaBrowser/Column/FrameRate=Frame Rate"},
        {MediaColumn::Size, "size", "$$$/MediaBrowser/Column/Size=Size"},
        {MediaColumn::VideoCodec, "videocodec", "$$$/MediaBrowser/Column/VideoCodec=Video Codec"},
        {MediaColumn::StartTimecode, "starttimecode", "$$$/MediaBrowser/Column/StartTimecode=Start Timecode"},
        {MediaColumn::Date, "date", "$$$/MediaBrowser/Column/Date=Date Modified"},
        {MediaColumn::Resolution, "resolution", "$$$/MediaBrowser/Column/Resolution=Resolution"},
        {MediaColumn::Audio, "audio", "$$$/MediaBrowser/Column/Audio=Audio"},
    };
    return columns;
}

Fnd::WString MediaColumnText(const MediaEntry& entry, MediaColumn column) {
    switch (column) {
    case MediaColumn::Name:
        return entry.displayName;
    case MediaColumn::Date:
        return DateText(entry.modifiedTime);
    case MediaColumn::Size:
        // Known from the listing: a clip shows it before its facts arrive.
        return entry.folder ? Fnd::WString() : SizeText(entry.sizeBytes);
    default:
        return entry.folder || !entry.facts ? Fnd::WString() : FactText(*entry.facts, column);
    }
}

} // namespace fluxmediabrowser
