#include "CopyVerifier.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "ErrorText.h"
#include "QL/CopySetting.h"
#include "VerifyAlgorithms.h"

namespace QL::Engine {
namespace {

} // namespace

CopyVerifier::CopyVerifier(std::uint32_t verifyMode, std::string sourcePath, std::size_t bufferBytes,
                           std::size_t readsInFlight, CopyControl& control, LaneHasher& hasher,
                           const CopyHooks& hooks)
    : verifyMode_(verifyMode), sourcePath_(std::move(sourcePath)), control_(control), hooks_(hooks) {
    if (IngestTask::IsChecksumVerify(verifyMode_)) {
        algorithm_ = SourceDigestAlgorithm(verifyMode_);
        if (algorithm_ == Checksum::Algorithm::Md5)
            md5_ = hasher.OpenStream();
        else
            hasher_ = Checksum::MakeHasher(algorithm_);
        pipeline_ = std::make_unique<ReadBackPipeline>(copy_, bufferBytes, readsInFlight);
    } else {
        copyBuffer_ = std::make_unique<AlignedBuffer>(bufferBytes);
        sourceBuffer_ = std::make_unique<AlignedBuffer>(bufferBytes);
    }
}

std::string CopyVerifier::Open(const std::string& copyPath) {
    if (const int error = copy_.Open(copyPath, &hooks_.failReadBack))
        return Because("could not read back the copy", error);
    if (sourceBuffer_) {
        if (const int error = source_.Open(sourcePath_))
            return Because("source could not be read back", error);
    }
    return {};
}

VerifiedBy CopyVerifier::Method() const {
    return copy_.Direct() ? VerifiedBy::DirectRead : VerifiedBy::DroppedCache;
}

bool CopyVerifier::Fail(std::string reason) {
    reason_ = std::move(reason);
    failed_.store(true, std::memory_order_release);
    return false;
}

bool CopyVerifier::CheckUpTo(std::uint64_t upTo) {
    return Check(upTo, /*toEnd=*/false);
}

bool CopyVerifier::CheckToEnd(const SourceEnd& source) {
    if (!Check(0, /*toEnd=*/true))
        return false;
    if (pipeline_) {
        const std::string digest = md5_ ? md5_->FinishHex() : hasher_->FinishHex();
        if (digest != source.digest)
            return Fail("verification failed: " + ChecksumLabel(algorithm_) + " differs");
    } else if (checked_ != source.size) {
        return Fail("verification failed: sizes differ");
    }
    return true;
}

bool CopyVerifier::Check(std::uint64_t upTo, bool toEnd) {
    if (Failed() || cancelled_)
        return false;
    return pipeline_ ? HashUpTo(upTo, toEnd) : CompareUpTo(upTo, toEnd);
}

bool CopyVerifier::HashUpTo(std::uint64_t upTo, bool toEnd) {
    const bool completed = pipeline_->Run(
        checked_, upTo, toEnd, [&](const std::byte* data, const IoResult& read, std::uint64_t) {
            if (!control_.Checkpoint()) {
                cancelled_ = true;
                return false;
            }
            if (read.error != 0)
                return Fail(Because("could not read back the copy", read.error));
            if (md5_)
                md5_->Update(data, read.bytes);
            else
                hasher_->Update(data, read.bytes);
            checked_ += read.bytes;
            return true;
        });
    return completed && !Failed() && !cancelled_;
}

bool CopyVerifier::CompareUpTo(std::uint64_t upTo, bool toEnd) {
    const std::size_t bufferBytes = copyBuffer_->Size();
    while (toEnd || checked_ < upTo) {
        if (!control_.Checkpoint()) {
            cancelled_ = true;
            return false;
        }
        const std::size_t length =
            toEnd ? bufferBytes
                  : static_cast<std::size_t>(std::min<std::uint64_t>(bufferBytes, upTo - checked_));
        const IoResult copy = copy_.Read(copyBuffer_->Data(), length, checked_);
        if (copy.error != 0)
            return Fail(Because("could not read back the copy", copy.error));
        const IoResult source = source_.Read(sourceBuffer_->Data(), length, checked_);
        if (source.error != 0)
            return Fail(Because("source could not be read back", source.error));
        const std::size_t common = std::min(copy.bytes, source.bytes);
        const std::size_t differs = FirstDifference(copyBuffer_->Data(), sourceBuffer_->Data(), common);
        if (differs != common)
            return Fail("verification failed: contents differ at byte " + std::to_string(checked_ + differs));
        if (copy.bytes != source.bytes)
            return Fail("verification failed: sizes differ");
        checked_ += copy.bytes;
        if (copy.bytes < length)
            break;
    }
    return true;
}

} // namespace QL::Engine
