#include "Av/Transcoder.h"

#include <memory>

#include "Av/MediaError.h"
#include "AvFormatInput.h"
#include "ClipTimeline.h"
#include "Encoder.h"
#include "OutputGroup.h"
#include "ProgressMeter.h"
#include "Remux.h"
#include "SpanDecoder.h"

namespace Av {
namespace {

// The picture and sound the encoders are set up for, from the first clip (and the first with sound).
SourceFormat SourceFormatOf(const ClipTimeline& timeline) {
    SourceFormat source;
    const SegmentSpan& first = timeline.spans.front();
    source.width = first.video.width;
    source.height = first.video.height;
    source.frameRate = AVRational{first.video.frameRateNum, first.video.frameRateDen};
    {
        AvFormatInput input(first.segment->video);
        const AVFormatContext& format = input.Context();
        for (unsigned i = 0; i < format.nb_streams; ++i) {
            const AVCodecParameters& codec = *format.streams[i]->codecpar;
            if (codec.codec_type != AVMEDIA_TYPE_VIDEO)
                continue;
            source.sampleAspect = codec.sample_aspect_ratio;
            source.colorRange = codec.color_range;
            source.colorSpace = codec.color_space;
            source.colorPrimaries = codec.color_primaries;
            source.colorTransfer = codec.color_trc;
            break;
        }
    }
    for (const SegmentSpan& span : timeline.spans) {
        if (!span.segment->audio.empty()) {
            source.audioChannels = int(span.segment->audio.size());
            source.sampleRate = span.firstAudioFile.audioSampleRate;
            break;
        }
        if (span.video.audioStreams > 0) {
            source.audioChannels = span.video.audioChannels;
            source.sampleRate = span.video.audioSampleRate;
            break;
        }
    }
    return source;
}

// Outputs with equal settings, in the order of their first member.
std::vector<std::vector<std::size_t>> GroupBySettings(const std::vector<TranscodeOutput>& outputs) {
    std::vector<std::vector<std::size_t>> groups;
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        auto same = std::find_if(groups.begin(), groups.end(), [&](const std::vector<std::size_t>& group) {
            return outputs[group.front()].settings == outputs[i].settings;
        });
        if (same == groups.end())
            groups.push_back({i});
        else
            same->push_back(i);
    }
    return groups;
}

void DecodeInto(const ClipTimeline& timeline, std::vector<std::unique_ptr<OutputGroup>>& groups,
                ProgressMeter& meter, double secondsBefore) {
    auto anyActive = [&] {
        return std::any_of(groups.begin(), groups.end(), [](const auto& group) { return group->Active(); });
    };
    const bool wantSound =
        std::any_of(groups.begin(), groups.end(), [](const auto& group) { return group->WantsSound(); });
    double spanStart = secondsBefore;
    SpanSinks sinks;
    sinks.picture = [&](const AVFrame& frame, double at, double frameSeconds) {
        for (const auto& group : groups)
            group->Picture(frame, at, frameSeconds);
        meter.Frame(spanStart + at + frameSeconds);
    };
    sinks.sound = [&](const AVFrame& frame) {
        for (const auto& group : groups)
            group->Sound(frame);
    };
    sinks.betweenPackets = [&] {
        meter.Checkpoint();
        // Every output failed (full disks): reading on would write nothing.
        if (!anyActive())
            throw MediaCancelled();
    };
    try {
        for (const SegmentSpan& span : timeline.spans) {
            DecodeSpan(span, wantSound, sinks);
            for (const auto& group : groups)
                group->EndSpan();
            spanStart += span.length;
        }
    } catch (const MediaCancelled&) {
        if (anyActive())
            throw;
        return;
    }
    for (const auto& group : groups)
        group->Finish();
}

} // namespace

TranscodeResult Transcode(const TranscodeRequest& request) {
    QuietFFmpegLog();
    const ClipTimeline timeline = ClipTimeline::Of(request.clips);
    const std::vector<std::vector<std::size_t>> members = GroupBySettings(request.outputs);
    std::vector<std::vector<std::size_t>> remuxed;
    std::vector<std::vector<std::size_t>> encoded;
    for (const auto& group : members)
        (CanRemux(timeline, request.outputs[group.front()].settings) ? remuxed : encoded).push_back(group);
    std::size_t passes = encoded.empty() ? 0 : 1;
    for (const auto& group : remuxed)
        passes += group.size();
    ProgressMeter meter(request, timeline.frames * std::int64_t(passes), timeline.seconds * double(passes));

    TranscodeResult result;
    result.outputs.resize(request.outputs.size());
    double secondsBefore = 0;
    if (!encoded.empty()) {
        const SourceFormat source = SourceFormatOf(timeline);
        std::vector<std::unique_ptr<OutputGroup>> groups;
        for (const auto& group : encoded)
            groups.push_back(std::make_unique<OutputGroup>(request.outputs[group.front()].settings, request.outputs,
                                                           group, source, timeline.startTimecode));
        DecodeInto(timeline, groups, meter, secondsBefore);
        secondsBefore += timeline.seconds;
        for (const auto& group : groups)
            for (std::size_t i = 0; i < group->Members().size(); ++i) {
                OutputResult& output = result.outputs[group->Members()[i]];
                output.error = group->ErrorOf(i);
                output.expected = group->Expected(timeline.seconds);
            }
    }
    const ClipInfo& first = timeline.spans.front().video;
    for (const auto& group : remuxed)
        for (const std::size_t member : group) {
            const TranscodeOutput& output = request.outputs[member];
            OutputResult& outcome = result.outputs[member];
            outcome.error = Remux(timeline, output.settings, output.path, meter, secondsBefore);
            outcome.remuxed = true;
            outcome.expected = {first.width, first.height, first.frameRateNum, first.frameRateDen, timeline.seconds,
                                !output.settings.audioEncoder.empty() && first.audioStreams > 0};
            secondsBefore += timeline.seconds;
        }
    meter.Finish();
    result.progress = meter.Progress();
    return result;
}

} // namespace Av
