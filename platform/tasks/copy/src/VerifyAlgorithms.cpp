#include "VerifyAlgorithms.h"

#include <algorithm>
#include <cctype>
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

} // namespace QL::Engine
