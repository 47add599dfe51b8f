#include "ChannelFiles.h"

#include <algorithm>
#include <climits>

#include "Av/MediaError.h"
#include "AvFormatInput.h"
#include "Decoder.h"
#include "Resampler.h"
#include "SoundTrim.h"

namespace Av {

struct ChannelFiles::File {
    File(const std::string& path, int sampleRate, double from, double length) : input(path) {
        AVFormatContext& format = input.Context();
        stream = av_find_best_stream(&format, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
        if (stream < 0)
            throw MediaError(path + ": the sound file holds no sound");
        const AVStream& sound = *format.streams[stream];
        decoder = std::make_unique<Decoder>(sound, path);
        window.timeBase = sound.time_base;
        window.start = sound.start_time == AV_NOPTS_VALUE ? 0 : sound.start_time;
        window.from = from;
        window.length = length;
        AVChannelLayout mono = AV_CHANNEL_LAYOUT_MONO;
        queue = std::make_unique<Resampler>(AV_SAMPLE_FMT_FLTP, sampleRate, mono);
        if (from > 0)
            av_seek_frame(&format, stream, window.start + std::int64_t(from / av_q2d(sound.time_base)),
                          AVSEEK_FLAG_BACKWARD);
    }

    // Decodes one more packet of the file; false at its end.
    bool ReadPacket() {
        if (done)
            return false;
        const PacketPtr packet = NewPacket();
        int read = 0;
        while ((read = av_read_frame(&input.Context(), packet.get())) >= 0 && packet->stream_index != stream)
            av_packet_unref(packet.get());
        decoder->Send(read >= 0 ? packet.get() : nullptr);
        const FramePtr frame = NewFrame();
        while (decoder->Receive(*frame)) {
            bool pastEnd = false;
            if (const FramePtr part = TrimSound(*frame, window, pastEnd)) {
                queue->Push(*part);
                decodedSeconds = double(frame->best_effort_timestamp - window.start) * av_q2d(window.timeBase) -
                                 window.from + double(frame->nb_samples) / frame->sample_rate;
            }
            done = done || pastEnd;
            av_frame_unref(frame.get());
        }
        if (read < 0)
            done = true;
        if (done)
            queue->Flush();
        return !done;
    }

    AvFormatInput input;
    int stream = -1;
    std::unique_ptr<Decoder> decoder;
    SoundWindow window;
    std::unique_ptr<Resampler> queue;
    double decodedSeconds = 0;
    bool done = false;
};

ChannelFiles::ChannelFiles(const std::vector<std::string>& paths, double from, double length) {
    for (const std::string& path : paths) {
        if (files_.empty()) {
            AvFormatInput first(path);
            const int stream = av_find_best_stream(&first.Context(), AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
            if (stream >= 0)
                sampleRate_ = first.Context().streams[stream]->codecpar->sample_rate;
        }
        files_.push_back(std::make_unique<File>(path, sampleRate_, from, length));
    }
}

ChannelFiles::~ChannelFiles() = default;

void ChannelFiles::ReadUntil(double seconds, const std::function<void(const AVFrame&)>& sink, bool toEnd) {
    for (const auto& file : files_)
        while ((toEnd || file->decodedSeconds < seconds) && file->ReadPacket()) {
        }
    Merge(sink);
}

void ChannelFiles::Merge(const std::function<void(const AVFrame&)>& sink) {
    int samples = INT_MAX;
    for (const auto& file : files_)
        samples = std::min(samples, file->queue->Queued());
    if (samples <= 0 || samples == INT_MAX)
        return;
    FramePtr merged = NewFrame();
    merged->format = AV_SAMPLE_FMT_FLTP;
    merged->sample_rate = sampleRate_;
    merged->nb_samples = samples;
    av_channel_layout_default(&merged->ch_layout, int(files_.size()));
    if (av_frame_get_buffer(merged.get(), 0) < 0)
        throw std::bad_alloc();
    for (std::size_t channel = 0; channel < files_.size(); ++channel) {
        const FramePtr part = files_[channel]->queue->Pull(samples);
        std::copy_n(part->extended_data[0], samples * sizeof(float), merged->extended_data[channel]);
    }
    sink(*merged);
}

} // namespace Av
