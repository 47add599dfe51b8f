#include "BufferDigests.h"

#include <algorithm>

#include "Md5Lanes.h"
#include "Md5State.h"

namespace QL::Engine {
namespace {

struct Lane {
    std::size_t buffer = 0;
    const unsigned char* blocks = nullptr;
    std::size_t blocksLeft = 0;
};

std::vector<std::string> Md5sOf(const std::vector<ByteRange>& buffers) {
    std::vector<Md5State> states(buffers.size());
    std::vector<std::string> digests(buffers.size());
    const auto finish = [&](std::size_t index) {
        const ByteRange& range = buffers[index];
        const std::size_t whole = range.size / Md5State::kBlockBytes * Md5State::kBlockBytes;
        states[index].length = whole;
        Md5Update(states[index], range.data + whole, range.size - whole);
        digests[index] = Md5FinishHex(states[index]);
    };
    std::size_t next = 0;
    std::vector<Lane> lanes;
    lanes.reserve(Md5Lanes::kLanes);
    for (;;) {
        while (lanes.size() < Md5Lanes::kLanes && next < buffers.size()) {
            const ByteRange& range = buffers[next];
            const std::size_t blocks = range.size / Md5State::kBlockBytes;
            if (blocks == 0)
                finish(next);
            else
                lanes.push_back(Lane{next, reinterpret_cast<const unsigned char*>(range.data), blocks});
            ++next;
        }
        if (lanes.empty())
            return digests;
        std::size_t turn = lanes.front().blocksLeft;
        for (const Lane& lane : lanes)
            turn = std::min(turn, lane.blocksLeft);
        if (lanes.size() == 1) {
            // One stream alone goes faster through the plain rounds than through one lane.
            Md5CompressBlocks(states[lanes[0].buffer].words, lanes[0].blocks, turn);
        } else {
            std::array<std::uint32_t, 4>* words[Md5Lanes::kLanes] = {};
            const unsigned char* blocks[Md5Lanes::kLanes] = {};
            for (std::size_t i = 0; i < lanes.size(); ++i) {
                words[i] = &states[lanes[i].buffer].words;
                blocks[i] = lanes[i].blocks;
            }
            Md5Lanes::CompressBlocks(words, blocks, turn);
        }
        for (Lane& lane : lanes) {
            lane.blocks += turn * Md5State::kBlockBytes;
            lane.blocksLeft -= turn;
            if (lane.blocksLeft == 0)
                finish(lane.buffer);
        }
        lanes.erase(std::remove_if(lanes.begin(), lanes.end(), [](const Lane& lane) { return lane.blocksLeft == 0; }),
                    lanes.end());
    }
}

} // namespace

std::vector<std::string> DigestsOf(Checksum::Algorithm algorithm, const std::vector<ByteRange>& buffers) {
    if (algorithm == Checksum::Algorithm::Md5)
        return Md5sOf(buffers);
    std::vector<std::string> digests;
    digests.reserve(buffers.size());
    for (const ByteRange& range : buffers)
        digests.push_back(Checksum::DigestHex(algorithm, range.data, range.size));
    return digests;
}

} // namespace QL::Engine
