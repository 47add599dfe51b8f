#pragma once
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "Md5State.h"

namespace QL::Engine {

// One thread that takes the MD5 of every stream of the copies running at once: the sources as
// they are read and the copies as they are read back. Streams that have data waiting are hashed
// side by side in the lanes of Md5Lanes, so the three streams of a file with two targets (six
// with two files in flight) cost hardly more than one. A stream waits in Update until its data is
// hashed, which is what lets the caller reuse its buffer.
class LaneHasher {
public:
    class Stream {
    public:
        ~Stream();
        Stream(const Stream&) = delete;
        Stream& operator=(const Stream&) = delete;

        void Update(const void* data, std::size_t size);
        // Lower-case hex; the stream is spent.
        std::string FinishHex();

    private:
        friend class LaneHasher;
        explicit Stream(std::shared_ptr<LaneHasher> hasher) : hasher_(std::move(hasher)) {}

        std::shared_ptr<LaneHasher> hasher_;
        Md5State state_;
        bool active_ = false; // between its first data and its digest
    };

    // The hashing thread starts with the first data and ends with the last hasher reference.
    static std::shared_ptr<LaneHasher> Create();
    ~LaneHasher();
    LaneHasher(const LaneHasher&) = delete;
    LaneHasher& operator=(const LaneHasher&) = delete;

    std::unique_ptr<Stream> OpenStream();

private:
    struct Request {
        Md5State* state;
        const unsigned char* blocks;
        std::size_t blockCount;
        bool done = false;
    };

    LaneHasher() = default;
    // Hashes whole blocks for the stream's state; returns when they are in it.
    void HashBlocks(Md5State& state, const unsigned char* blocks, std::size_t blockCount);
    void Run();

    std::weak_ptr<LaneHasher> self_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Request*> waiting_;
    // Streams that have had data and not yet given their digest: only they are company worth
    // waiting for. A stream merely opened (a read-back before its first read) is not.
    std::size_t activeStreams_ = 0;
    bool stopping_ = false;
    std::thread thread_;
};

} // namespace QL::Engine
