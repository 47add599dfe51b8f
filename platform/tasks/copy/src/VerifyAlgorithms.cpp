#include "VerifyAlgorithms.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <stdexcept>

#include "QL/CopySetting.h"

namespace QL::Engine {

void RequireVerifyMode(std::uint32_t verifyMode) {
    if (!IngestTask::IsChecksumVerify(verifyMode) && verifyMode != IngestTask::kVerifyFileSize &&
        verifyMode != IngestTask::kVerifyBitByBit && verifyMode != IngestTask::kVerifyNone)
        throw std::invalid_argument("not a verify mode: " + std::to_string(verifyMode));
}

Checksum::Algorithm SourceDigestAlgorithm(std::uint32_t verifyMode) {
    switch (verifyMode) {
    case IngestTask::kVerifyMD5:
        return Checksum::Algorithm::Md5;
    case IngestTask::kVerifyXXH3:
        return Checksum::Algorithm::Xxh3;
    case IngestTask::kVerifyXXH64:
        return Checksum::Algorithm::Xxh64;
    default:
        return Checksum::Algorithm::Xxh128;
    }
}

std::string ChecksumLabel(Checksum::Algorithm algorithm) {
    std::string label(Checksum::NameOf(algorithm));
    std::transform(label.begin(), label.end(), label.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return label;
}

std::string HistoryMismatchReason(const ExpectedDigest& expected) {
    return "source does not match its ASC MHL history: " + ChecksumLabel(expected.algorithm) + " differs from " +
           expected.listedIn;
}

std::size_t FirstDifference(const std::byte* a, const std::byte* b, std::size_t length) {
    if (std::memcmp(a, b, length) == 0)
        return length;
    return static_cast<std::size_t>(std::mismatch(a, a + length, b).first - a);
}

} // namespace QL::Engine
