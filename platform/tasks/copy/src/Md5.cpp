#include "Md5.h"

#include <openssl/evp.h>

#include <stdexcept>

namespace QL::Engine {

Md5::Md5() : context_(EVP_MD_CTX_new()) {
    if (!context_ || EVP_DigestInit_ex(context_, EVP_md5(), nullptr) != 1) {
        EVP_MD_CTX_free(context_);
        throw std::runtime_error("MD5 is not available from OpenSSL");
    }
}

Md5::~Md5() {
    EVP_MD_CTX_free(context_);
}

void Md5::Update(const void* data, std::size_t size) {
    if (finished_)
        throw std::logic_error("Md5::Update after FinishHex");
    if (size != 0 && EVP_DigestUpdate(context_, data, size) != 1)
        throw std::runtime_error("MD5 update failed");
}

std::string Md5::FinishHex() {
    if (finished_)
        throw std::logic_error("Md5::FinishHex called twice");
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int length = 0;
    if (EVP_DigestFinal_ex(context_, digest, &length) != 1)
        throw std::runtime_error("MD5 final failed");
    finished_ = true;
    static const char kHex[] = "0123456789abcdef";
    std::string hex;
    hex.reserve(2 * length);
    for (unsigned int i = 0; i < length; ++i) {
        hex += kHex[digest[i] >> 4];
        hex += kHex[digest[i] & 0x0F];
    }
    return hex;
}

} // namespace QL::Engine
