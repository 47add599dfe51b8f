#include "Checksum/Checksum.h"

#define XXH_INLINE_ALL
#include <xxhash.h>

#include <openssl/evp.h>

#include <array>
#include <stdexcept>

namespace Checksum {
namespace {

std::string Hex(const unsigned char* bytes, std::size_t size) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text(size * 2, '0');
    for (std::size_t i = 0; i < size; ++i) {
        text[2 * i] = kDigits[bytes[i] >> 4];
        text[2 * i + 1] = kDigits[bytes[i] & 15];
    }
    return text;
}

class Md5Hasher final : public Hasher {
public:
    Md5Hasher() : context_(EVP_MD_CTX_new()) {
        if (!context_)
            throw std::bad_alloc();
        Reset();
    }
    ~Md5Hasher() override { EVP_MD_CTX_free(context_); }
    void Update(const void* data, std::size_t size) override { EVP_DigestUpdate(context_, data, size); }
    std::string FinishHex() override {
        std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
        unsigned int length = 0;
        EVP_DigestFinal_ex(context_, digest.data(), &length);
        Reset();
        return Hex(digest.data(), length);
    }
    void Reset() override {
        if (EVP_DigestInit_ex(context_, EVP_md5(), nullptr) != 1)
            throw std::runtime_error("MD5 is not available");
    }
    Algorithm Kind() const override { return Algorithm::Md5; }

private:
    EVP_MD_CTX* context_;
};

class Xxh3Hasher final : public Hasher {
public:
    explicit Xxh3Hasher(Algorithm kind) : kind_(kind), state_(XXH3_createState()) {
        if (!state_)
            throw std::bad_alloc();
        Reset();
    }
    ~Xxh3Hasher() override { XXH3_freeState(state_); }
    void Update(const void* data, std::size_t size) override {
        if (kind_ == Algorithm::Xxh128)
            XXH3_128bits_update(state_, data, size);
        else
            XXH3_64bits_update(state_, data, size);
    }
    std::string FinishHex() override {
        std::string hex;
        if (kind_ == Algorithm::Xxh128) {
            XXH128_canonical_t canonical;
            XXH128_canonicalFromHash(&canonical, XXH3_128bits_digest(state_));
            hex = Hex(canonical.digest, sizeof canonical.digest);
        } else {
            XXH64_canonical_t canonical;
            XXH64_canonicalFromHash(&canonical, XXH3_64bits_digest(state_));
            hex = Hex(canonical.digest, sizeof canonical.digest);
        }
        Reset();
        return hex;
    }
    void Reset() override {
        if (kind_ == Algorithm::Xxh128)
            XXH3_128bits_reset(state_);
        else
            XXH3_64bits_reset(state_);
    }
    Algorithm Kind() const override { return kind_; }

private:
    Algorithm kind_;
    XXH3_state_t* state_;
};

class Xxh64Hasher final : public Hasher {
public:
    Xxh64Hasher() : state_(XXH64_createState()) {
        if (!state_)
            throw std::bad_alloc();
        Reset();
    }
    ~Xxh64Hasher() override { XXH64_freeState(state_); }
    void Update(const void* data, std::size_t size) override { XXH64_update(state_, data, size); }
    std::string FinishHex() override {
        XXH64_canonical_t canonical;
        XXH64_canonicalFromHash(&canonical, XXH64_digest(state_));
        Reset();
        return Hex(canonical.digest, sizeof canonical.digest);
    }
    void Reset() override { XXH64_reset(state_, 0); }
    Algorithm Kind() const override { return Algorithm::Xxh64; }

private:
    XXH64_state_t* state_;
};

} // namespace

std::string_view NameOf(Algorithm algorithm) {
    switch (algorithm) {
    case Algorithm::Md5:
        return "md5";
    case Algorithm::Xxh128:
        return "xxh128";
    case Algorithm::Xxh3:
        return "xxh3";
    case Algorithm::Xxh64:
        return "xxh64";
    }
    throw std::invalid_argument("not a checksum algorithm");
}

std::optional<Algorithm> AlgorithmNamed(std::string_view name) {
    for (const Algorithm algorithm : {Algorithm::Md5, Algorithm::Xxh128, Algorithm::Xxh3, Algorithm::Xxh64})
        if (NameOf(algorithm) == name)
            return algorithm;
    return std::nullopt;
}

std::unique_ptr<Hasher> MakeHasher(Algorithm algorithm) {
    switch (algorithm) {
    case Algorithm::Md5:
        return std::make_unique<Md5Hasher>();
    case Algorithm::Xxh128:
    case Algorithm::Xxh3:
        return std::make_unique<Xxh3Hasher>(algorithm);
    case Algorithm::Xxh64:
        return std::make_unique<Xxh64Hasher>();
    }
    throw std::invalid_argument("not a checksum algorithm");
}

std::string DigestHex(Algorithm algorithm, const void* data, std::size_t size) {
    switch (algorithm) {
    case Algorithm::Xxh128: {
        XXH128_canonical_t canonical;
        XXH128_canonicalFromHash(&canonical, XXH3_128bits(data, size));
        return Hex(canonical.digest, sizeof canonical.digest);
    }
    case Algorithm::Xxh3: {
        XXH64_canonical_t canonical;
        XXH64_canonicalFromHash(&canonical, XXH3_64bits(data, size));
        return Hex(canonical.digest, sizeof canonical.digest);
    }
    case Algorithm::Xxh64: {
        XXH64_canonical_t canonical;
        XXH64_canonicalFromHash(&canonical, XXH64(data, size, 0));
        return Hex(canonical.digest, sizeof canonical.digest);
    }
    case Algorithm::Md5:
        break;
    }
    auto hasher = MakeHasher(algorithm);
    hasher->Update(data, size);
    return hasher->FinishHex();
}

} // namespace Checksum
