#pragma once
// Between the task contract's checksum verify modes and the algorithms they hash with.
#include <cstdint>
#include <optional>

#include "Checksum/Checksum.h"
#include "QL/CopySetting.h"

namespace QL::IngestTask {

// The algorithm a verify mode compares digests with; none for size, bit by bit and no check.
constexpr std::optional<Checksum::Algorithm> ChecksumAlgorithmOf(std::uint32_t verifyMode) {
    switch (verifyMode) {
    case kVerifyMD5:
        return Checksum::Algorithm::Md5;
    case kVerifyXXH128:
        return Checksum::Algorithm::Xxh128;
    case kVerifyXXH3:
        return Checksum::Algorithm::Xxh3;
    case kVerifyXXH64:
        return Checksum::Algorithm::Xxh64;
    default:
        return std::nullopt;
    }
}

constexpr std::uint32_t ChecksumVerifyMode(Checksum::Algorithm algorithm) {
    switch (algorithm) {
    case Checksum::Algorithm::Xxh128:
        return kVerifyXXH128;
    case Checksum::Algorithm::Xxh3:
        return kVerifyXXH3;
    case Checksum::Algorithm::Xxh64:
        return kVerifyXXH64;
    case Checksum::Algorithm::Md5:
        break;
    }
    return kVerifyMD5;
}

} // namespace QL::IngestTask
