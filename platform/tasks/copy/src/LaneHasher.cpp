#include "LaneHasher.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <vector>

#include "Md5Lanes.h"

namespace QL::Engine {
namespace {

// Blocks hashed per turn before the thread looks for streams that have come to wait, so that a
// stream arriving behind a long chunk joins the lanes within a fraction of a millisecond.
constexpr std::size_t kBlocksPerTurn = 4096; // 256 KiB per lane
constexpr auto kWaitForCompany = std::chrono::milliseconds(2);

} // namespace

LaneHasher::Stream::~Stream() {
    std::lock_guard lock(hasher_->mutex_);
    if (active_)
        --hasher_->activeStreams_;
}

void LaneHasher::Stream::Update(const void* data, std::size_t size) {
    auto bytes = static_cast<const unsigned char*>(data);
    // The tail and the bytes that complete it are few; they are hashed here, so that the thread
    // gets whole blocks straight from the caller's buffer.
    if (state_.tailBytes != 0) {
        const std::size_t take = std::min(size, Md5State::kBlockBytes - state_.tailBytes);
        Md5Update(state_, bytes, take);
        bytes += take;
        size -= take;
    }
    const std::size_t whole = size / Md5State::kBlockBytes;
    if (whole != 0 && !active_) {
        std::lock_guard lock(hasher_->mutex_);
        active_ = true;
        ++hasher_->activeStreams_;
    }
    if (whole != 0) {
        hasher_->HashBlocks(state_, bytes, whole);
        state_.length += whole * Md5State::kBlockBytes;
    }
    const std::size_t rest = size - whole * Md5State::kBlockBytes;
    if (rest != 0)
        Md5Update(state_, bytes + whole * Md5State::kBlockBytes, rest);
}

std::string LaneHasher::Stream::FinishHex() {
    if (active_) {
        std::lock_guard lock(hasher_->mutex_);
        active_ = false;
        --hasher_->activeStreams_;
    }
    return Md5FinishHex(state_);
}

std::shared_ptr<LaneHasher> LaneHasher::Create() {
    std::shared_ptr<LaneHasher> hasher(new LaneHasher());
    hasher->self_ = hasher;
    hasher->thread_ = std::thread(&LaneHasher::Run, hasher.get());
    return hasher;
}

LaneHasher::~LaneHasher() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable())
        thread_.join();
}

std::unique_ptr<LaneHasher::Stream> LaneHasher::OpenStream() {
    return std::unique_ptr<Stream>(new Stream(self_.lock()));
}

void LaneHasher::HashBlocks(Md5State& state, const unsigned char* blocks, std::size_t blockCount) {
    Request request{&state, blocks, blockCount};
    std::unique_lock lock(mutex_);
    waiting_.push_back(&request);
    changed_.notify_all();
    changed_.wait(lock, [&] { return request.done; });
}

void LaneHasher::Run() {
    std::vector<Request*> lanes;
    lanes.reserve(Md5Lanes::kLanes);
    for (;;) {
        {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [&] { return stopping_ || !waiting_.empty() || !lanes.empty(); });
            if (stopping_ && waiting_.empty() && lanes.empty())
                return;
            const auto takeWaiting = [&] {
                while (lanes.size() < Md5Lanes::kLanes && !waiting_.empty()) {
                    lanes.push_back(waiting_.front());
                    waiting_.pop_front();
                }
            };
            takeWaiting();
            // Lanes left empty are wasted: when other streams are active their next data is usually
            // moments away, and the buffers in flight let the readers go on meanwhile. A stream
            // that has gone quiet costs at most this wait per turn.
            if (lanes.size() < std::min(activeStreams_, Md5Lanes::kLanes)) {
                changed_.wait_for(lock, kWaitForCompany, [&] {
                    return stopping_ ||
                           lanes.size() + waiting_.size() >= std::min(activeStreams_, Md5Lanes::kLanes);
                });
                takeWaiting();
            }
        }

        std::size_t turn = kBlocksPerTurn;
        for (const Request* request : lanes)
            turn = std::min(turn, request->blockCount);
        if (lanes.size() == 1) {
            // One stream alone goes faster through the plain rounds than through one lane.
            Md5CompressBlocks(lanes[0]->state->words, lanes[0]->blocks, turn);
        } else {
            std::array<std::uint32_t, 4>* words[Md5Lanes::kLanes] = {};
            const unsigned char* blocks[Md5Lanes::kLanes] = {};
            for (std::size_t i = 0; i < lanes.size(); ++i) {
                words[i] = &lanes[i]->state->words;
                blocks[i] = lanes[i]->blocks;
            }
            Md5Lanes::CompressBlocks(words, blocks, turn);
        }

        bool finished = false;
        for (Request* request : lanes) {
            request->blocks += turn * Md5State::kBlockBytes;
            request->blockCount -= turn;
            finished = finished || request->blockCount == 0;
        }
        if (finished) {
            std::lock_guard lock(mutex_);
            for (Request* request : lanes) {
                if (request->blockCount == 0)
                    request->done = true;
            }
            lanes.erase(std::remove_if(lanes.begin(), lanes.end(), [](const Request* r) { return r->done; }),
                        lanes.end());
            changed_.notify_all();
        }
    }
}

} // namespace QL::Engine
