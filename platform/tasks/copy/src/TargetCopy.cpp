#include "TargetCopy.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "ErrorText.h"
#include "FileIo.h"
#include "FinalRename.h"
#include "QL/CopySetting.h"
#include "TargetFolder.h"
#include "TargetNames.h"
#include "TemporaryFile.h"
#include "VerifyAlgorithms.h"

namespace QL::Engine {
namespace {

bool NeedsReadBack(std::uint32_t verifyMode) {
    return IngestTask::IsChecksumVerify(verifyMode) || verifyMode == IngestTask::kVerifyBitByBit;
}

} // namespace

TargetCopy::TargetCopy(CopyTarget target, const CopyJob& job) : target_(std::move(target)), job_(job) {}

TargetCopy::~TargetCopy() {
    queue_.Close(SourceEnd{});
    if (writer_.joinable())
        writer_.join();
    StopTrailing();
    CloseWriter();
    RemoveTemporary();
}

bool TargetCopy::Prepare() {
    if (std::string reason = PrepareFolderOf(target_); !reason.empty()) {
        Fail(std::move(reason));
        return false;
    }
    fd_ = CreateTemporaryFor(target_.path, temporary_);
    if (fd_ < 0) {
        Fail(Because("could not create the copy", -fd_));
        fd_ = -1;
        return false;
    }
    // Direct writes keep the page cache out of the way: the copy is read back from the medium
    // anyway, and filling memory with it costs more than it saves.
    directWrites_ = SetDirect(fd_);
    // Reserving the space up front turns a full disk into an answer before any byte is written,
    // and keeps the copy in one piece. Filesystems that cannot reserve simply write.
    const auto size = static_cast<off_t>(job_.sourceStatus.st_size);
    if (size > 0 && ::fallocate(fd_, FALLOC_FL_KEEP_SIZE, 0, size) != 0 &&
        (errno == ENOSPC || errno == EDQUOT)) {
        Fail(Because("could not write the copy", errno));
        return false;
    }
    if (NeedsReadBack(job_.verifyMode)) {
        verifier_ = std::make_unique<CopyVerifier>(job_.verifyMode, job_.source, job_.readBackBytes,
                                                   job_.readBacksInFlight, *job_.control, *job_.hasher,
                                                   *job_.hooks);
        if (std::string reason = verifier_->Open(temporary_); !reason.empty()) {
            Fail(std::move(reason));
            return false;
        }
    }
    return true;
}

void TargetCopy::Start() {
    // A fault-injection hook after writing wants the whole file checked after it ran.
    const bool trailing = verifier_ && job_.flushEvery != 0 && !job_.hooks->afterWrite &&
                          static_cast<std::uint64_t>(job_.sourceStatus.st_size) > job_.flushEvery;
    if (trailing)
        trailer_ = std::thread(&TargetCopy::Trail, this);
    writer_ = std::thread(&TargetCopy::Run, this);
}

const CopyOutcome& TargetCopy::Finish() {
    if (writer_.joinable())
        writer_.join();
    return outcome_;
}

void TargetCopy::Run() {
    while (Chunk* chunk = queue_.Pop()) {
        try {
            if (Live() && !job_.control->IsCancelled())
                Write(*chunk);
        } catch (const std::exception& error) {
            Fail(std::string("copy failed: ") + error.what());
        }
        job_.pool->Drop(chunk);
    }
    try {
        Conclude(queue_.End());
    } catch (const std::exception& error) {
        Fail(std::string("copy failed: ") + error.what());
        StopTrailing();
        CloseWriter();
        RemoveTemporary();
    }
}

void TargetCopy::Write(const Chunk& chunk) {
    if (job_.hooks->failWrite) {
        if (const int error = job_.hooks->failWrite(temporary_, chunk.offset)) {
            Fail(Because("could not write the copy", error));
            return;
        }
    }
    const IoResult result = WriteAt(fd_, chunk.buffer.Data(), chunk.length, chunk.offset, directWrites_);
    if (result.error != 0) {
        Fail(Because("could not write the copy", result.error));
        return;
    }
    written_ = chunk.offset + chunk.length;
    // Flush only whole chunks, so that every region the verifier reads back starts aligned.
    if (trailer_.joinable() && written_ - flushed_ >= job_.flushEvery &&
        chunk.length == chunk.buffer.Size()) {
        if (::fdatasync(fd_) != 0) {
            Fail(Because("could not flush the copy", errno));
            return;
        }
        flushed_ = written_;
        flushedMark_.Publish(flushed_);
    }
    if (verifier_ && verifier_->Failed())
        Fail(verifier_->Reason());
}

void TargetCopy::Trail() {
    std::uint64_t checked = 0;
    std::uint64_t upTo = 0;
    while (flushedMark_.WaitBeyond(checked, upTo)) {
        if (!verifier_->CheckUpTo(upTo))
            return;
        checked = upTo;
    }
}

void TargetCopy::StopTrailing() {
    if (!trailer_.joinable())
        return;
    flushedMark_.End();
    trailer_.join();
}

void TargetCopy::Conclude(const SourceEnd& end) {
    StopTrailing();
    if (!Live()) {
        CloseWriter();
        RemoveTemporary();
        return;
    }
    if (end.kind == SourceEnd::Kind::Cancelled || job_.control->IsCancelled()) {
        Cancel();
        return;
    }
    if (end.kind == SourceEnd::Kind::Failed) {
        Fail(end.reason);
        CloseWriter();
        RemoveTemporary();
        return;
    }
    // The times go on before the flush so that one flush makes data and times durable; reading
    // back for verification does not touch them.
    const struct timespec times[2] = {job_.sourceStatus.st_atim, job_.sourceStatus.st_mtim};
    if (::futimens(fd_, times) != 0)
        Fail(Because("could not set the modification time", errno));
    else if (::fsync(fd_) != 0)
        Fail(Because("could not flush the copy", errno));
    const int closeError = ::close(fd_) == 0 ? 0 : errno;
    fd_ = -1;
    if (Live() && closeError != 0)
        Fail(Because("could not flush the copy", closeError));
    if (!Live()) {
        RemoveTemporary();
        return;
    }
    if (job_.hooks->afterWrite)
        job_.hooks->afterWrite(temporary_);
    if (!Verify(end)) {
        if (verifier_ && verifier_->Cancelled())
            Cancel();
        else
            RemoveTemporary();
        return;
    }
    if (job_.control->IsCancelled()) {
        Cancel();
        return;
    }
    if (!Rename()) {
        RemoveTemporary();
        return;
    }
    outcome_.status = CopyStatus::Copied;
    outcome_.bytes = end.size;
    outcome_.checksum = end.digest;
    outcome_.checksumAlgorithm = std::string(Checksum::NameOf(SourceDigestAlgorithm(job_.verifyMode)));
}

bool TargetCopy::Verify(const SourceEnd& end) {
    if (job_.verifyMode == IngestTask::kVerifyNone) {
        outcome_.verifiedBy = VerifiedBy::NotVerified;
        return true;
    }
    if (job_.verifyMode == IngestTask::kVerifyFileSize) {
        struct stat copy {};
        if (::stat(temporary_.c_str(), &copy) != 0) {
            Fail(Because("could not read back the copy", errno));
            return false;
        }
        if (static_cast<std::uint64_t>(copy.st_size) != end.size) {
            Fail("verification failed: sizes differ");
            return false;
        }
        outcome_.verifiedBy = VerifiedBy::Size;
        return true;
    }
    if (!verifier_->CheckToEnd(end)) {
        if (!verifier_->Cancelled())
            Fail(verifier_->Reason());
        return false;
    }
    outcome_.verifiedBy = verifier_->Method();
    return true;
}

bool TargetCopy::Rename() {
    std::string finalPath;
    if (std::string reason = GiveFinalName(target_, temporary_, *job_.hooks, finalPath); !reason.empty()) {
        Fail(std::move(reason));
        return false;
    }
    temporary_.clear();
    SyncFolderOf(finalPath);
    outcome_.finalPath = std::move(finalPath);
    return true;
}

void TargetCopy::Fail(std::string reason) {
    if (!Live())
        return;
    outcome_.status = CopyStatus::Failed;
    // Whatever failed, a destination gone from under the copy is the reason to give.
    outcome_.reason = FolderAwareReason(target_, std::move(reason));
    failed_.store(true, std::memory_order_release);
}

void TargetCopy::Cancel() {
    if (Live()) {
        outcome_.status = CopyStatus::Cancelled;
        outcome_.reason = "cancelled";
        failed_.store(true, std::memory_order_release);
    }
    CloseWriter();
    RemoveTemporary();
}

void TargetCopy::CloseWriter() {
    if (fd_ >= 0)
        ::close(fd_);
    fd_ = -1;
}

void TargetCopy::RemoveTemporary() {
    RemoveTemporaryOf(temporary_, outcome_);
}

} // namespace QL::Engine
