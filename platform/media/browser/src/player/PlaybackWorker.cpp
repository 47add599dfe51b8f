#include "PlaybackWorker.h"

#include <cmath>
#include <exception>
#include <utility>

#include "Fnd/RunLoop.h"

namespace Mid {

PlaybackWorker::PlaybackWorker(std::weak_ptr<PlaybackListener> listener)
    : listener_(std::move(listener)), thread_([this] { Run(); }) {}

PlaybackWorker::~PlaybackWorker() {
    {
        const std::lock_guard lock(mutex_);
        quit_ = true;
    }
    wake_.notify_all();
    thread_.join();
}

void PlaybackWorker::Open(std::shared_ptr<ClipPlaybackFactory> factory, std::string path, std::uint64_t generation,
                          fluxmediatypes::Time start) {
    {
        const std::lock_guard lock(mutex_);
        openAsk_ = OpenAsk{std::move(factory), std::move(path), generation};
        frameAsk_ = FrameAsk{start, true};
        playing_ = false;
    }
    wake_.notify_all();
}

void PlaybackWorker::ShowFrame(std::int64_t index) {
    {
        const std::lock_guard lock(mutex_);
        frameAsk_ = FrameAsk{index, false};
    }
    wake_.notify_all();
}

void PlaybackWorker::ShowTime(fluxmediatypes::Time time) {
    {
        const std::lock_guard lock(mutex_);
        frameAsk_ = FrameAsk{time, true};
    }
    wake_.notify_all();
}

void PlaybackWorker::Play(std::int64_t lastIndex, std::uint64_t playSerial) {
    {
        const std::lock_guard lock(mutex_);
        playSerial_ = playSerial;
        playing_ = true;
        restartClock_ = true;
        lastIndex_ = lastIndex;
    }
    wake_.notify_all();
}

void PlaybackWorker::Pause() {
    {
        const std::lock_guard lock(mutex_);
        playing_ = false;
    }
    wake_.notify_all();
}

void PlaybackWorker::SetBox(int width, int height) {
    const std::lock_guard lock(mutex_);
    boxWidth_ = width;
    boxHeight_ = height;
}

template <typename Call> void PlaybackWorker::Report(Call call) {
    Fnd::GetRunLoop().Post(
        [listener = listener_, call = std::move(call)] {
            if (const std::shared_ptr<PlaybackListener> alive = listener.lock())
                call(*alive);
        },
        false);
}

void PlaybackWorker::Run() {
    std::unique_lock lock(mutex_);
    while (!quit_) {
        if (openAsk_) {
            const OpenAsk ask = std::move(*openAsk_);
            openAsk_.reset();
            lock.unlock();
            DoOpen(ask);
            lock.lock();
            continue;
        }
        if (!playback_) {
            // Nothing to show until a clip opens.
            frameAsk_.reset();
            playing_ = false;
            wake_.wait(lock);
            continue;
        }
        const int width = boxWidth_;
        const int height = boxHeight_;
        if (frameAsk_) {
            const FrameAsk ask = *frameAsk_;
            frameAsk_.reset();
            lock.unlock();
            DoShow(ask, width, height);
            lock.lock();
            restartClock_ = true;
            continue;
        }
        if (!playing_) {
            wake_.wait(lock);
            continue;
        }
        const double rate = playback_->FrameRate();
        const Clock::time_point now = Clock::now();
        if (restartClock_) {
            clockBase_ = now;
            clockBaseIndex_ = shownIndex_;
            restartClock_ = false;
        }
        const auto due = clockBase_ + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(
                                          double(shownIndex_ + 1 - clockBaseIndex_) / rate));
        if (now < due) {
            wake_.wait_until(lock, due);
            continue;
        }
        // Behind the clock, the frames in between are decoded and not shown: play keeps time.
        const std::int64_t dueIndex =
            clockBaseIndex_ + std::int64_t(std::floor(std::chrono::duration<double>(now - clockBase_).count() * rate));
        const std::int64_t lastIndex = lastIndex_;
        lock.unlock();
        const bool goesOn = DoPlayStep(dueIndex, lastIndex, width, height);
        lock.lock();
        if (!goesOn && playing_ && !frameAsk_) {
            playing_ = false;
            Report([generation = generation_, serial = playSerial_](PlaybackListener& listener) {
                listener.PlayingStopped(generation, serial);
            });
        }
    }
}

void PlaybackWorker::DoOpen(const OpenAsk& ask) {
    playback_.reset();
    shownIndex_ = -1;
    generation_ = ask.generation;
    try {
        playback_ = ask.factory->Open(ask.path);
        if (!playback_ || !(playback_->FrameRate() > 0))
            throw PlaybackUnavailable(ask.path + ": the clip has no frame rate to play at");
    } catch (const std::exception& error) {
        Fail(error.what());
        return;
    }
    Report([generation = generation_, rate = playback_->FrameRate(), count = playback_->FrameCount()](
               PlaybackListener& listener) { listener.ClipOpened(generation, rate, count); });
}

void PlaybackWorker::DoShow(const FrameAsk& ask, int width, int height) {
    std::int64_t index = ask.value;
    if (ask.isTime) {
        const auto frameTicks = std::llround(double(fluxmediatypes::kTicksPerSecond) / playback_->FrameRate());
        index = ask.value <= 0 ? 0 : ask.value / frameTicks;
    }
    try {
        PlaybackFrame frame = playback_->Seek(index, width, height);
        shownIndex_ = frame.index;
        Report([generation = generation_, frame = std::move(frame)](PlaybackListener& listener) {
            listener.FrameDecoded(generation, frame);
        });
    } catch (const std::exception& error) {
        Fail(error.what());
    }
}

bool PlaybackWorker::DoPlayStep(std::int64_t dueIndex, std::int64_t lastIndex, int width, int height) {
    if (shownIndex_ >= lastIndex)
        return false;
    try {
        std::optional<PlaybackFrame> frame;
        do
            frame = playback_->Next(width, height);
        while (frame && frame->index < dueIndex && frame->index < lastIndex);
        if (!frame)
            return false;
        shownIndex_ = frame->index;
        Report([generation = generation_, frame = std::move(*frame)](PlaybackListener& listener) {
            listener.FrameDecoded(generation, frame);
        });
        return shownIndex_ < lastIndex;
    } catch (const std::exception& error) {
        Fail(error.what());
        return false;
    }
}

void PlaybackWorker::Fail(const std::string& reason) {
    playback_.reset();
    Report([generation = generation_, reason](PlaybackListener& listener) { listener.ClipFailed(generation, reason); });
}

} // namespace Mid
