#include "QL/Engine/GroupCopier.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <unordered_map>

#include "BufferDigests.h"
#include "DurabilityBarrier.h"
#include "ErrorText.h"
#include "FileIo.h"
#include "FinalRename.h"
#include "Fnd/PathUtils.h"
#include "GroupBuffers.h"
#include "MediumReader.h"
#include "QL/CopySetting.h"
#include "SourceChange.h"
#include "TargetActions.h"
#include "TargetFolder.h"
#include "TemporaryFile.h"
#include "VerifyAlgorithms.h"

namespace QL::Engine {
namespace {

// A source of the group once read: where its bytes are and what they hash to.
struct GroupSource {
    const SourceCopy* copy = nullptr;
    bool read = false;
    std::byte* data = nullptr;
    std::uint64_t size = 0;
    struct stat status {};
    Checksum::Algorithm algorithm = Checksum::Algorithm::Xxh128;
    std::string digest;
};

// A target of the group while its copy is made.
struct GroupTarget {
    std::size_t source = 0;
    std::size_t index = 0; // among its source's targets
    const CopyTarget* target = nullptr;
    std::string temporary;
    int filesystem = -1; // index in the barrier
    bool live = true;
    CopyOutcome* outcome = nullptr;
};

std::size_t FirstDifference(const std::byte* a, const std::byte* b, std::size_t length) {
    if (std::memcmp(a, b, length) == 0)
        return length;
    return static_cast<std::size_t>(std::mismatch(a, a + length, b).first - a);
}

class GroupRun {
public:
    GroupRun(const std::vector<SourceCopy>& group, GroupBuffers& buffers, CopyControl& control,
             const CopyHooks& hooks, const GroupProgressFunction& progress)
        : group_(group), buffers_(buffers), control_(control), hooks_(hooks), progress_(progress),
          outcomes_(group.size()), sources_(group.size()) {}

    ~GroupRun() {
        for (GroupTarget& target : targets_)
            RemoveTemporary(target);
    }

    std::vector<std::vector<CopyOutcome>> Run() {
        ReadSources();
        HashSources();
        WriteTemporaries();
        MakeDurable();
        VerifyCopies();
        GiveFinalNames();
        return std::move(outcomes_);
    }

private:
    void ReadSources() {
        std::uint64_t offset = 0;
        for (std::size_t i = 0; i < group_.size(); ++i) {
            const SourceCopy& copy = group_[i];
            outcomes_[i].resize(copy.targets.size());
            sources_[i].copy = &copy;
            std::vector<std::size_t> pending;
            for (std::size_t t = 0; t < copy.targets.size(); ++t)
                if (!SettleWithoutData(copy.targets[t], outcomes_[i][t]))
                    pending.push_back(t);
            if (pending.empty())
                continue;
            for (const std::size_t t : pending)
                targets_.push_back(GroupTarget{i, t, &copy.targets[t], {}, -1, true, &outcomes_[i][t]});
            if (!control_.Checkpoint()) {
                FailSource(i, {});
                continue;
            }
            if (std::string reason = ReadWhole(sources_[i], offset); !reason.empty()) {
                FailSource(i, reason);
                continue;
            }
            offset += GroupCopier::Footprint(sources_[i].size);
            if (progress_)
                progress_(i, sources_[i].size);
        }
    }

    // The whole file in one read, into its place in the group's buffer.
    std::string ReadWhole(GroupSource& source, std::uint64_t offset) {
        const std::string& path = source.copy->source;
        const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (fd < 0)
            return Because("source could not be read", errno);
        std::string reason;
        if (::fstat(fd, &source.status) != 0)
            reason = Because("source could not be read", errno);
        else if (!S_ISREG(source.status.st_mode))
            reason = Because("source could not be read", S_ISDIR(source.status.st_mode) ? EISDIR : EINVAL);
        const auto size = static_cast<std::uint64_t>(source.status.st_size);
        // Grown since the batch was planned beyond what the group set aside: it is being written.
        if (reason.empty() && offset + GroupCopier::Footprint(size) > buffers_.sources.Size())
            reason = "source could not be read: it changed while it was being read";
        if (reason.empty() && hooks_.beforeRead) {
            if (const int error = hooks_.beforeRead(path, 0))
                reason = Because("source could not be read", error);
        }
        if (reason.empty()) {
            source.data = buffers_.sources.Data() + offset;
            // One byte more than expected shows a file that grew meanwhile.
            const IoResult read = ReadAt(fd, source.data, static_cast<std::size_t>(size) + 1, 0);
            if (read.error != 0)
                reason = Because("source could not be read", read.error);
            else
                reason = ChangedWhileRead(fd, source.status, read.bytes);
            source.size = size;
        }
        ::close(fd);
        source.read = reason.empty();
        return reason;
    }

    void HashSources() {
        std::map<Checksum::Algorithm, std::vector<std::size_t>> byAlgorithm;
        for (std::size_t i = 0; i < sources_.size(); ++i) {
            if (!sources_[i].read)
                continue;
            sources_[i].algorithm = SourceDigestAlgorithm(group_[i].verifyMode);
            byAlgorithm[sources_[i].algorithm].push_back(i);
        }
        for (const auto& [algorithm, indexes] : byAlgorithm) {
            std::vector<ByteRange> ranges;
            ranges.reserve(indexes.size());
            for (const std::size_t i : indexes)
                ranges.push_back(ByteRange{sources_[i].data, static_cast<std::size_t>(sources_[i].size)});
            std::vector<std::string> digests = DigestsOf(algorithm, ranges);
            for (std::size_t k = 0; k < indexes.size(); ++k)
                sources_[indexes[k]].digest = std::move(digests[k]);
        }
        for (std::size_t i = 0; i < sources_.size(); ++i) {
            const GroupSource& source = sources_[i];
            if (!source.read || !group_[i].expected)
                continue;
            const ExpectedDigest& expected = *group_[i].expected;
            const std::string actual = expected.algorithm == source.algorithm
                                           ? source.digest
                                           : Checksum::DigestHex(expected.algorithm, source.data, source.size);
            if (actual != expected.hex)
                FailSource(i, "source does not match its ASC MHL history: " + ChecksumLabel(expected.algorithm) +
                                  " differs from " + expected.listedIn);
        }
    }

    void WriteTemporaries() {
        for (GroupTarget& target : targets_) {
            if (!target.live)
                continue;
            if (control_.IsCancelled()) {
                Cancel(target);
                continue;
            }
            if (std::string reason = PrepareFolder(*target.target); !reason.empty()) {
                Fail(target, std::move(reason));
                continue;
            }
            Fail(target, WriteTemporary(target));
        }
    }

    // Each folder once per group: its links are looked for and it is made where it may be.
    std::string PrepareFolder(const CopyTarget& target) {
        const std::string folder = Fnd::PathUtils::FolderOf(target.path);
        const auto found = preparedFolders_.find(folder);
        if (found != preparedFolders_.end())
            return found->second;
        return preparedFolders_.emplace(folder, PrepareFolderOf(target)).first->second;
    }

    std::string WriteTemporary(GroupTarget& target) {
        const int fd = CreateTemporaryFor(target.target->path, target.temporary);
        if (fd < 0)
            return Because("could not create the copy", -fd);
        const GroupSource& source = sources_[target.source];
        std::string reason;
        if (hooks_.failWrite) {
            if (const int error = hooks_.failWrite(target.temporary, 0))
                reason = Because("could not write the copy", error);
        }
        bool direct = false;
        if (reason.empty()) {
            const IoResult written = WriteAt(fd, source.data, static_cast<std::size_t>(source.size), 0, direct);
            if (written.error != 0)
                reason = Because("could not write the copy", written.error);
        }
        // The times go on with the data, so that the group's one flush makes both durable.
        const struct timespec times[2] = {source.status.st_atim, source.status.st_mtim};
        if (reason.empty() && ::futimens(fd, times) != 0)
            reason = Because("could not set the modification time", errno);
        if (reason.empty()) {
            // Writing back starts now, so that the group's flush mostly waits for what is already
            // under way.
            ::sync_file_range(fd, 0, 0, SYNC_FILE_RANGE_WRITE);
            target.filesystem = barrier_.Note(fd);
            if (target.filesystem < 0)
                reason = Because("could not flush the copy", -target.filesystem);
        }
        if (::close(fd) != 0 && reason.empty())
            reason = Because("could not write the copy", errno);
        return reason;
    }

    void MakeDurable() {
        const std::vector<int> errors = barrier_.Pass();
        for (GroupTarget& target : targets_) {
            if (!target.live)
                continue;
            if (const int error = errors[static_cast<std::size_t>(target.filesystem)])
                Fail(target, Because("could not flush the copy", error));
            else if (hooks_.afterWrite)
                hooks_.afterWrite(target.temporary);
        }
    }

    void VerifyCopies() {
        for (GroupTarget& target : targets_) {
            if (!target.live)
                continue;
            if (!control_.Checkpoint()) {
                Cancel(target);
                continue;
            }
            const std::uint32_t mode = group_[target.source].verifyMode;
            if (mode == IngestTask::kVerifyNone)
                continue;
            if (mode == IngestTask::kVerifyFileSize) {
                CheckSize(target);
                continue;
            }
            ReadBack(target);
            if (readBackBytes_ + kIoAlignment > buffers_.readBack.Size() || window_.size() == 8)
                CheckWindow();
        }
        CheckWindow();
    }

    void CheckSize(GroupTarget& target) {
        struct stat copy {};
        if (::stat(target.temporary.c_str(), &copy) != 0)
            Fail(target, Because("could not read back the copy", errno));
        else if (static_cast<std::uint64_t>(copy.st_size) != sources_[target.source].size)
            Fail(target, "verification failed: sizes differ");
        else
            target.outcome->verifiedBy = VerifiedBy::Size;
    }

    // Reads the copy back from the medium into the window; checksums are compared when the window
    // is full, a byte-by-byte check at once against the source still in memory.
    void ReadBack(GroupTarget& target) {
        const GroupSource& source = sources_[target.source];
        const std::uint64_t room = RoundUpToAlignment(source.size + 1);
        if (readBackBytes_ + room > buffers_.readBack.Size())
            CheckWindow();
        MediumReader reader;
        if (const int error = reader.Open(target.temporary, &hooks_.failReadBack)) {
            Fail(target, Because("could not read back the copy", error));
            return;
        }
        std::byte* data = buffers_.readBack.Data() + readBackBytes_;
        // One byte more than the source shows a copy that is longer.
        const IoResult read = reader.Read(data, static_cast<std::size_t>(source.size) + 1, 0);
        if (read.error != 0) {
            Fail(target, Because("could not read back the copy", read.error));
            return;
        }
        target.outcome->verifiedBy = reader.Direct() ? VerifiedBy::DirectRead : VerifiedBy::DroppedCache;
        if (group_[target.source].verifyMode == IngestTask::kVerifyBitByBit) {
            const std::size_t common = std::min<std::size_t>(read.bytes, source.size);
            const std::size_t differs = FirstDifference(data, source.data, common);
            if (differs != common)
                Fail(target, "verification failed: contents differ at byte " + std::to_string(differs));
            else if (read.bytes != source.size)
                Fail(target, "verification failed: sizes differ");
            return;
        }
        if (read.bytes != source.size) {
            Fail(target, "verification failed: sizes differ");
            return;
        }
        window_.push_back(WindowEntry{&target, ByteRange{data, read.bytes}});
        readBackBytes_ += room;
    }

    void CheckWindow() {
        std::map<Checksum::Algorithm, std::vector<const WindowEntry*>> byAlgorithm;
        for (const WindowEntry& entry : window_)
            byAlgorithm[sources_[entry.target->source].algorithm].push_back(&entry);
        for (const auto& [algorithm, entries] : byAlgorithm) {
            std::vector<ByteRange> ranges;
            ranges.reserve(entries.size());
            for (const WindowEntry* entry : entries)
                ranges.push_back(entry->range);
            const std::vector<std::string> digests = DigestsOf(algorithm, ranges);
            for (std::size_t k = 0; k < entries.size(); ++k)
                if (digests[k] != sources_[entries[k]->target->source].digest)
                    Fail(*entries[k]->target, "verification failed: " + ChecksumLabel(algorithm) + " differs");
        }
        window_.clear();
        readBackBytes_ = 0;
    }

    void GiveFinalNames() {
        std::map<std::string, std::string> folders; // each folder, and a name in it
        for (GroupTarget& target : targets_) {
            if (!target.live)
                continue;
            if (control_.IsCancelled()) {
                Cancel(target);
                continue;
            }
            std::string finalPath;
            if (std::string reason = GiveFinalName(*target.target, target.temporary, hooks_, finalPath);
                !reason.empty()) {
                Fail(target, std::move(reason));
                continue;
            }
            target.temporary.clear();
            const GroupSource& source = sources_[target.source];
            CopyOutcome& outcome = *target.outcome;
            outcome.status = CopyStatus::Copied;
            outcome.bytes = source.size;
            outcome.checksum = source.digest;
            outcome.checksumAlgorithm = std::string(Checksum::NameOf(source.algorithm));
            if (group_[target.source].verifyMode == IngestTask::kVerifyNone)
                outcome.verifiedBy = VerifiedBy::NotVerified;
            folders.emplace(Fnd::PathUtils::FolderOf(finalPath), finalPath);
            outcome.finalPath = std::move(finalPath);
        }
        // The names become durable together: one flush per folder.
        for (const auto& [folder, name] : folders)
            SyncFolderOf(name);
    }

    // Fails every target of a source that still waits; an empty reason means cancelled.
    void FailSource(std::size_t source, const std::string& reason) {
        for (GroupTarget& target : targets_)
            if (target.source == source && target.live) {
                if (reason.empty())
                    Cancel(target);
                else
                    Fail(target, reason);
            }
    }

    void Fail(GroupTarget& target, std::string reason) {
        if (reason.empty() || !target.live)
            return;
        target.live = false;
        target.outcome->status = CopyStatus::Failed;
        // Whatever failed, a destination gone from under the copy is the reason to give.
        target.outcome->reason = FolderAwareReason(*target.target, std::move(reason));
        RemoveTemporary(target);
    }

    void Cancel(GroupTarget& target) {
        if (!target.live)
            return;
        target.live = false;
        target.outcome->status = CopyStatus::Cancelled;
        target.outcome->reason = "cancelled";
        RemoveTemporary(target);
    }

    void RemoveTemporary(GroupTarget& target) {
        if (target.temporary.empty())
            return;
        // A disk turned read-only keeps what was written so far: the user must hear where it is,
        // and the journal keeps it so that a later resume removes it.
        if (::unlink(target.temporary.c_str()) != 0 && errno != ENOENT) {
            CopyOutcome& outcome = *target.outcome;
            outcome.leftover = target.temporary;
            outcome.reason += (outcome.reason.empty() ? "" : "; ") + std::string("the partial copy ") +
                              target.temporary + " could not be removed: " + ErrorText(errno);
        }
        target.temporary.clear();
    }

    struct WindowEntry {
        GroupTarget* target;
        ByteRange range;
    };

    const std::vector<SourceCopy>& group_;
    GroupBuffers& buffers_;
    CopyControl& control_;
    const CopyHooks& hooks_;
    const GroupProgressFunction& progress_;
    std::vector<std::vector<CopyOutcome>> outcomes_;
    std::vector<GroupSource> sources_;
    std::vector<GroupTarget> targets_;
    std::unordered_map<std::string, std::string> preparedFolders_;
    DurabilityBarrier barrier_;
    std::vector<WindowEntry> window_;
    std::uint64_t readBackBytes_ = 0;
};

} // namespace

std::uint64_t GroupCopier::Footprint(std::uint64_t fileSize) {
    // The byte after the end is read too, to see a file that grew.
    return RoundUpToAlignment(fileSize + 1);
}

GroupCopier::GroupCopier(CopyHooks hooks) : hooks_(std::move(hooks)) {}

GroupCopier::~GroupCopier() = default;

std::vector<std::vector<CopyOutcome>> GroupCopier::CopyGroup(const std::vector<SourceCopy>& group,
                                                             CopyControl& control,
                                                             const GroupProgressFunction& progress) const {
    for (const SourceCopy& copy : group) {
        RequireVerifyMode(copy.verifyMode);
        for (const CopyTarget& target : copy.targets)
            RequireValidTarget(target);
    }
    std::unique_ptr<GroupBuffers> buffers = AcquireBuffers();
    std::vector<std::vector<CopyOutcome>> outcomes;
    {
        GroupRun run(group, *buffers, control, hooks_, progress);
        outcomes = run.Run();
    }
    ReturnBuffers(std::move(buffers));
    return outcomes;
}

void GroupCopier::ReleaseBuffers() {
    std::lock_guard lock(poolMutex_);
    pool_.clear();
}

std::unique_ptr<GroupBuffers> GroupCopier::AcquireBuffers() const {
    {
        std::lock_guard lock(poolMutex_);
        if (!pool_.empty()) {
            std::unique_ptr<GroupBuffers> buffers = std::move(pool_.back());
            pool_.pop_back();
            return buffers;
        }
    }
    return std::make_unique<GroupBuffers>();
}

void GroupCopier::ReturnBuffers(std::unique_ptr<GroupBuffers> buffers) const {
    std::lock_guard lock(poolMutex_);
    pool_.push_back(std::move(buffers));
}

} // namespace QL::Engine
