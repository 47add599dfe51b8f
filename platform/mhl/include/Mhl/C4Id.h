#pragma once
// The C4 id of a byte stream: its SHA-512 digest as one big-endian number, written in base 58 with
// the C4 alphabet, padded to 88 digits and prefixed "c4" (90 characters). Chains name their
// generation files by it.
#include <memory>
#include <string>
#include <string_view>

namespace Mhl {

inline constexpr std::size_t kC4IdLength = 90;

class C4Hasher {
public:
    C4Hasher();
    ~C4Hasher();
    C4Hasher(const C4Hasher&) = delete;
    C4Hasher& operator=(const C4Hasher&) = delete;

    void Update(const void* data, std::size_t size);
    // The id of everything given since the last finish; the hasher starts over.
    std::string FinishId();

private:
    struct State;
    std::unique_ptr<State> state_;
};

std::string C4IdOf(std::string_view bytes);

// The 64 bytes of a SHA-512 digest as a C4 id.
std::string C4IdOfDigest(const unsigned char (&digest)[64]);

} // namespace Mhl
