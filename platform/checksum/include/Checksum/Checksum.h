#pragma once
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Checksum {

enum class Algorithm {
    Md5,
    Xxh128, // XXH3 with a 128-bit digest, as xxh128sum prints it
    Xxh3,   // XXH3 with a 64-bit digest
    Xxh64,
};

// "md5", "xxh128", "xxh3", "xxh64": the names of the ASC MHL hash formats and of --verify.
std::string_view NameOf(Algorithm algorithm);
std::optional<Algorithm> AlgorithmNamed(std::string_view name);

// One running digest. Digests are lower-case hex of the canonical (big-endian) form, the text the
// xxhsum and md5sum tools print.
class Hasher {
public:
    virtual ~Hasher() = default;
    virtual void Update(const void* data, std::size_t size) = 0;
    // The digest of everything given since the last Reset; the hasher is then reset.
    virtual std::string FinishHex() = 0;
    virtual void Reset() = 0;
    virtual Algorithm Kind() const = 0;
};

std::unique_ptr<Hasher> MakeHasher(Algorithm algorithm);

// The digest of a whole buffer, for the many small files read in one piece.
std::string DigestHex(Algorithm algorithm, const void* data, std::size_t size);

} // namespace Checksum
