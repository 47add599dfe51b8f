#include "ClipTimeline.h"

#include <algorithm>
#include <cmath>

#include "Av/MediaError.h"
#include "SecondsText.h"

extern "C" {
#include <libavutil/timecode.h>
}

namespace Av {
namespace {

// The recorded start timecode moved on by the frames an in point skips.
std::string TimecodeAfter(const ClipInfo& info, double seconds) {
    if (info.startTimecode.empty() || info.frameRateNum <= 0 || seconds <= 0)
        return info.startTimecode;
    AVTimecode timecode{};
    if (av_timecode_init_from_string(&timecode, AVRational{info.frameRateNum, info.frameRateDen},
                                     info.startTimecode.c_str(), nullptr) < 0)
        return info.startTimecode;
    char text[AV_TIMECODE_STR_SIZE];
    const int frames = int(std::llround(seconds * info.frameRateNum / info.frameRateDen));
    return av_timecode_make_string(&timecode, text, frames);
}

void AddClip(const SourceClip& clip, ClipTimeline& timeline) {
    if (clip.segments.empty())
        throw MediaError("a clip to transcode has no files");
    std::vector<SegmentSpan> spans;
    double clipSeconds = 0;
    for (const ClipSegment& segment : clip.segments) {
        SegmentSpan span;
        span.segment = &segment;
        span.video = ProbeClip(segment.video);
        if (!span.video.HasVideo())
            throw MediaError(segment.video + ": the clip has no video");
        if (!segment.audio.empty())
            span.firstAudioFile = ProbeClip(segment.audio.front());
        span.length = PictureSeconds(span.video);
        clipSeconds += span.length;
        spans.push_back(std::move(span));
    }
    const std::string& name = clip.segments.front().video;
    const double frame = spans.front().video.FrameSeconds();
    const double in = clip.inSeconds.value_or(0);
    const double out = clip.outSeconds.value_or(clipSeconds);
    if (clip.outSeconds && out > clipSeconds + frame / 2)
        throw MediaError(name + ": the out point " + SecondsText(out) + " lies past the end of the clip (" +
                         SecondsText(clipSeconds) + ")");
    if (in < 0 || in >= out - frame / 2)
        throw MediaError(name + ": the in point " + SecondsText(in) + " does not lie before the out point " +
                         SecondsText(out));
    if (timeline.spans.empty())
        timeline.startTimecode = TimecodeAfter(spans.front().video, in);
    timeline.cut = timeline.cut || clip.inSeconds.has_value() || clip.outSeconds.has_value();
    timeline.clipStarts.push_back(timeline.spans.size());
    double start = 0;
    for (SegmentSpan& span : spans) {
        const double end = start + span.length;
        const double from = std::max(in, start);
        const double to = std::min(out, end);
        if (to - from > span.video.FrameSeconds() / 2) {
            span.from = from - start;
            span.length = to - from;
            timeline.seconds += span.length;
            timeline.frames += std::llround(span.length * span.video.frameRateNum / span.video.frameRateDen);
            timeline.spans.push_back(std::move(span));
        }
        start = end;
    }
}

} // namespace

double PictureSeconds(const ClipInfo& info) {
    if (info.frameCount > 0 && info.frameRateNum > 0)
        return double(info.frameCount) * info.frameRateDen / info.frameRateNum;
    return info.durationSeconds;
}

ClipTimeline ClipTimeline::Of(const std::vector<SourceClip>& clips) {
    ClipTimeline timeline;
    for (const SourceClip& clip : clips)
        AddClip(clip, timeline);
    if (timeline.spans.empty())
        throw MediaError("there is nothing to transcode");
    return timeline;
}

} // namespace Av
