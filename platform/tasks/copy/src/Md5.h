#pragma once
#include <cstddef>
#include <string>

struct evp_md_ctx_st;

namespace QL::Engine {

// Incremental MD5 through OpenSSL's EVP interface, so a stream is hashed chunk by chunk as it
// passes and never held whole.
class Md5 {
public:
    Md5();
    ~Md5();
    Md5(const Md5&) = delete;
    Md5& operator=(const Md5&) = delete;

    void Update(const void* data, std::size_t size);
    // Lower-case hex of the digest; the hash cannot be updated afterwards.
    std::string FinishHex();

private:
    evp_md_ctx_st* context_;
    bool finished_ = false;
};

} // namespace QL::Engine
