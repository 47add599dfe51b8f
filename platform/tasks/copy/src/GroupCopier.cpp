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
#include "WorkerPool.h"

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

// Reads of a group in flight at once: these threads and the group's own.
constexpr std::size_t kReadersBesideTheCaller = 3;

class GroupRun {
public:
    GroupRun(const std::vector<SourceCopy>& group, GroupBuffers& buffers, WorkerPool& pool, CopyControl& control,
             const CopyHooks& hooks, const GroupProgressFunction& progress)
        : group_(group), buffers_(buffers), pool_(pool), control_(control), hooks_(hooks), progress_(progress),
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
        std::vector<std::size_t> toRead;
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
            if (!control_.Checkpoint())
                FailSource(i, {});
            else
                toRead.push_back(i);
        }
        // Opened side by side, placed in the buffer in order, then read side by side: each read
        // waits on the disk, and a few in flight keep it busy.
        std::vector<int> fds(group_.size(), -1);
        std::vector<std::string> reasons(group_.size());
        pool_.ForEach(toRead.size(), [&](std::size_t k) {
            const std::size_t i = toRead[k];
            reasons[i] = OpenSource(sources_[i], fds[i]);
        });
        std::uint64_t offset = 0;
        for (const std::size_t i : toRead) {
            if (!reasons[i].empty())
                continue;
            const std::uint64_t footprint = GroupCopier::Footprint(sources_[i].size);
            // Grown since the batch was planned beyond what the group set aside: being written.
            if (offset + footprint > buffers_.sources.Size()) {
                reasons[i] = "source could not be read: it changed while it was being read";
                continue;
            }
            sources_[i].data = buffers_.sources.Data() + offset;
            offset += footprint;
        }
        pool_.ForEach(toRead.size(), [&](std::size_t k) {
            const std::size_t i = toRead[k];
            if (reasons[i].empty())
                reasons[i] = ReadOpened(sources_[i], fds[i]);
            if (fds[i] >= 0)
                ::close(fds[i]);
        });
        for (const std::size_t i : toRead) {
            if (!reasons[i].empty()) {
                FailSource(i, reasons[i]);
                continue;
            }
            sources_[i].read = true;
            if (progress_)
                progress_(i, sources_[i].size);
        }
    }

    std::string OpenSource(GroupSource& source, int& fd) {
        fd = ::open(source.copy->source.c_str(), O_RDONLY | O_CLOEXEC);
        if (fd < 0)
            return Because("source could not be read", errno);
        if (::fstat(fd, &source.status) != 0)
            return Because("source could not be read", errno);
        if (!S_ISREG(source.status.st_mode))
            return Because("source could not be read", S_ISDIR(source.status.st_mode) ? EISDIR : EINVAL);
        source.size = static_cast<std::uint64_t>(source.status.st_size);
        return {};
    }

    // The whole file in one read, into its place in the group's buffer.
    std::string ReadOpened(GroupSource& source, int fd) {
        if (hooks_.beforeRead) {
            if (const int error = hooks_.beforeRead(source.copy->source, 0))
                return Because("source could not be read", error);
        }
        // One byte more than expected shows a file that grew meanwhile.
        const IoResult read = ReadAt(fd, source.data, static_cast<std::size_t>(source.size) + 1, 0);
        if (read.error != 0)
            return Because("source could not be read", read.error);
        return ChangedWhileRead(fd, source.status, read.bytes);
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
                FailSource(i, HistoryMismatchReason(expected));
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
        target.filesystem = barrier_.Note(fd, Fnd::PathUtils::FolderOf(target.target->path));
        if (target.filesystem < 0)
            reason = Because("could not flush the copy", -target.filesystem);
        if (reason.empty() && hooks_.failWrite) {
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
        std::vector<GroupTarget*> toReadBack;
        for (GroupTarget& target : targets_) {
            if (!target.live)
                continue;
            const std::uint32_t mode = group_[target.source].verifyMode;
            if (mode == IngestTask::kVerifyFileSize)
                CheckSize(target);
            else if (mode != IngestTask::kVerifyNone)
                toReadBack.push_back(&target);
        }
        // In windows as large as the buffer: read side by side, then checked in order.
        for (std::size_t next = 0; next < toReadBack.size();) {
            if (!control_.Checkpoint()) {
                for (; next < toReadBack.size(); ++next)
                    Cancel(*toReadBack[next]);
                return;
            }
            std::vector<ReadBackSlot> window;
            std::uint64_t used = 0;
            for (; next < toReadBack.size(); ++next) {
                const std::uint64_t room = RoundUpToAlignment(sources_[toReadBack[next]->source].size + 1);
                if (!window.empty() && used + room > buffers_.readBack.Size())
                    break;
                window.push_back(ReadBackSlot{toReadBack[next], buffers_.readBack.Data() + used, {}, 0, false});
                used += room;
            }
            pool_.ForEach(window.size(), [&](std::size_t k) { ReadBack(window[k]); });
            CheckWindow(window);
        }
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

    struct ReadBackSlot {
        GroupTarget* target;
        std::byte* data;
        IoResult read;
        int openError = 0;
        bool direct = false;
    };

    // Reads the copy back from the medium; on a thread of the pool.
    void ReadBack(ReadBackSlot& slot) {
        MediumReader reader;
        if ((slot.openError = reader.Open(slot.target->temporary, &hooks_.failReadBack)) != 0)
            return;
        // One byte more than the source shows a copy that is longer.
        slot.read = reader.Read(slot.data, static_cast<std::size_t>(sources_[slot.target->source].size) + 1, 0);
        slot.direct = reader.Direct();
    }

    // Byte by byte against the source still in memory; checksums side by side, per algorithm.
    void CheckWindow(std::vector<ReadBackSlot>& window) {
        std::map<Checksum::Algorithm, std::vector<const ReadBackSlot*>> byAlgorithm;
        for (const ReadBackSlot& slot : window) {
            GroupTarget& target = *slot.target;
            const GroupSource& source = sources_[target.source];
            const int error = slot.openError != 0 ? slot.openError : slot.read.error;
            if (error != 0) {
                Fail(target, Because("could not read back the copy", error));
                continue;
            }
            target.outcome->verifiedBy = slot.direct ? VerifiedBy::DirectRead : VerifiedBy::DroppedCache;
            if (group_[target.source].verifyMode == IngestTask::kVerifyBitByBit) {
                const std::size_t common = std::min<std::size_t>(slot.read.bytes, source.size);
                const std::size_t differs = FirstDifference(slot.data, source.data, common);
                if (differs != common)
                    Fail(target, "verification failed: contents differ at byte " + std::to_string(differs));
                else if (slot.read.bytes != source.size)
                    Fail(target, "verification failed: sizes differ");
            } else if (slot.read.bytes != source.size) {
                Fail(target, "verification failed: sizes differ");
            } else {
                byAlgorithm[source.algorithm].push_back(&slot);
            }
        }
        for (const auto& [algorithm, slots] : byAlgorithm) {
            std::vector<ByteRange> ranges;
            ranges.reserve(slots.size());
            for (const ReadBackSlot* slot : slots)
                ranges.push_back(ByteRange{slot->data, slot->read.bytes});
            const std::vector<std::string> digests = DigestsOf(algorithm, ranges);
            for (std::size_t k = 0; k < slots.size(); ++k)
                if (digests[k] != sources_[slots[k]->target->source].digest)
                    Fail(*slots[k]->target, "verification failed: " + ChecksumLabel(algorithm) + " differs");
        }
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

    void RemoveTemporary(GroupTarget& target) { RemoveTemporaryOf(target.temporary, *target.outcome); }

    const std::vector<SourceCopy>& group_;
    GroupBuffers& buffers_;
    WorkerPool& pool_;
    CopyControl& control_;
    const CopyHooks& hooks_;
    const GroupProgressFunction& progress_;
    std::vector<std::vector<CopyOutcome>> outcomes_;
    std::vector<GroupSource> sources_;
    std::vector<GroupTarget> targets_;
    std::unordered_map<std::string, std::string> preparedFolders_;
    DurabilityBarrier barrier_;
};

} // namespace

std::uint64_t GroupCopier::Footprint(std::uint64_t fileSize) {
    // The byte after the end is read too, to see a file that grew.
    return RoundUpToAlignment(fileSize + 1);
}

GroupCopier::GroupCopier(CopyHooks hooks)
    : hooks_(std::move(hooks)), readers_(std::make_unique<WorkerPool>(kReadersBesideTheCaller)) {}

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
        GroupRun run(group, *buffers, *readers_, control, hooks_, progress);
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
