#include "Mhl/C4Id.h"

#include <openssl/evp.h>

#include <array>
#include <stdexcept>

namespace Mhl {
namespace {

constexpr std::string_view kAlphabet = "123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz";
constexpr std::size_t kDigits = kC4IdLength - 2;

} // namespace

struct C4Hasher::State {
    EVP_MD_CTX* context = EVP_MD_CTX_new();
    ~State() { EVP_MD_CTX_free(context); }
    void Start() {
        if (!context || EVP_DigestInit_ex(context, EVP_sha512(), nullptr) != 1)
            throw std::runtime_error("SHA-512 is not available");
    }
};

C4Hasher::C4Hasher() : state_(std::make_unique<State>()) {
    state_->Start();
}

C4Hasher::~C4Hasher() = default;

void C4Hasher::Update(const void* data, std::size_t size) {
    if (size > 0)
        EVP_DigestUpdate(state_->context, data, size);
}

std::string C4Hasher::FinishId() {
    unsigned char digest[64];
    unsigned int length = 0;
    EVP_DigestFinal_ex(state_->context, digest, &length);
    state_->Start();
    return C4IdOfDigest(digest);
}

std::string C4IdOfDigest(const unsigned char (&digest)[64]) {
    // Long division of the 512-bit number by 58, one digit per pass, least significant first.
    std::array<unsigned char, 64> number;
    std::copy(std::begin(digest), std::end(digest), number.begin());
    std::string digits(kDigits, kAlphabet[0]);
    for (std::size_t position = kDigits; position-- > 0;) {
        unsigned remainder = 0;
        for (unsigned char& byte : number) {
            const unsigned value = (remainder << 8) | byte;
            byte = static_cast<unsigned char>(value / 58);
            remainder = value % 58;
        }
        digits[position] = kAlphabet[remainder];
    }
    return "c4" + digits;
}

std::string C4IdOf(std::string_view bytes) {
    C4Hasher hasher;
    hasher.Update(bytes.data(), bytes.size());
    return hasher.FinishId();
}

} // namespace Mhl
