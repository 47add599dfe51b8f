#include "CopyHistories.h"

#include <sys/stat.h>

#include <ctime>
#include <system_error>

#include "Checksum/Checksum.h"
#include "Fnd/PathUtils.h"
#include "IngestedFolder.h"
#include "Mhl/FileDigest.h"
#include "Mhl/FolderVerification.h"

namespace QL::Engine {
namespace {

// When the copy took no digest of the source (a size or bit-by-bit check, or none), the history
// gets the copy's own, in the fastest format.
constexpr char kFallbackFormat[] = "xxh128";

bool IsFolder(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string WhereItStands(const FileRecord& file) {
    return file.finalPath.empty() ? Fnd::ToUTF8(file.target) : file.finalPath;
}

// A file kept as it stood was not copied: it is hashed now and, when the folder's history lists
// it already, found the same or not.
Mhl::Digest DigestOfKept(const std::string& path, const std::string& relative, const Mhl::History* history,
                         const std::string& preferredFormat) {
    const Mhl::ListedFile* listed = history ? history->Find(relative) : nullptr;
    const Mhl::Digest* before = listed ? Mhl::ComputableDigest(listed->hash) : nullptr;
    const std::string format = before ? before->format : preferredFormat;
    const std::string now = Mhl::DigestOfFile(path, format);
    if (!before)
        return {format, now, Mhl::kActionOriginal};
    return {format, now, now == before->value ? Mhl::kActionVerified : Mhl::kActionFailed};
}

struct TaskFiles {
    std::vector<const FileRecord*> files;
    std::string format = kFallbackFormat;
};

// Writes the generation of one ingested folder; throws what the disk or an unreadable history says.
void WriteGeneration(const IngestedFolder& folder, const TaskFiles& task, std::int64_t startedAt) {
    if (!folder.source.empty())
        Mhl::CopyHistory(folder.source, folder.target);
    std::string error;
    const std::optional<Mhl::History> history = Mhl::History::Load(folder.target, error);
    if (!error.empty())
        throw std::runtime_error(error);

    Mhl::Generation generation = Mhl::NewGeneration("transfer", startedAt, std::time(nullptr));
    generation.ignorePatterns = {Mhl::kHistoryFolderName};
    const std::string prefix = folder.target == "/" ? "/" : folder.target + "/";
    for (const FileRecord* file : task.files) {
        const std::string path = WhereItStands(*file);
        if (!path.starts_with(prefix) || IsFolder(path))
            continue;
        Mhl::FileHash hash;
        hash.path = path.substr(prefix.size());
        if (hash.path.starts_with(std::string(Mhl::kHistoryFolderName) + "/") ||
            !Mhl::DescribeFile(path, hash))
            continue;
        if (file->state == FileState::Skipped)
            hash.digests.push_back(DigestOfKept(path, hash.path, history ? &*history : nullptr, task.format));
        else if (!file->checksum.empty() && !file->checksumAlgorithm.empty())
            hash.digests.push_back({file->checksumAlgorithm, file->checksum, Mhl::kActionOriginal});
        else
            hash.digests.push_back(
                {kFallbackFormat, Mhl::DigestOfFile(path, kFallbackFormat), Mhl::kActionOriginal});
        generation.hashes.push_back(std::move(hash));
    }
    if (!generation.hashes.empty())
        Mhl::AppendGeneration(folder.target, generation, std::time(nullptr));
}

} // namespace

CopyHistories::CopyHistories(BatchRun& run) : startedAt_(std::time(nullptr)) {
    run.expectedDigestOf = [cache = cache_](const std::string& source) {
        return ExpectedDigestOf(*cache, source);
    };
}

std::optional<ExpectedDigest> CopyHistories::ExpectedDigestOf(Cache& cache, const std::string& source) {
    // The history nearest above the source speaks for it; each folder is looked at once a batch.
    std::string folder = Fnd::PathUtils::FolderOf(source);
    while (true) {
        std::shared_ptr<const Mhl::History> history;
        {
            std::lock_guard lock(cache.mutex);
            auto found = cache.histories.find(folder);
            if (found == cache.histories.end()) {
                std::string error;
                std::optional<Mhl::History> loaded = Mhl::History::Load(folder, error);
                // A history that cannot be read vouches for nothing; the copy is checked as usual.
                found = cache.histories
                            .emplace(folder, loaded ? std::make_shared<const Mhl::History>(std::move(*loaded))
                                                    : nullptr)
                            .first;
            }
            history = found->second;
        }
        if (history) {
            const Mhl::ListedFile* listed =
                history->Find(source.substr(folder == "/" ? 1 : folder.size() + 1));
            const Mhl::Digest* digest = listed ? Mhl::ComputableDigest(listed->hash) : nullptr;
            std::optional<Checksum::Algorithm> algorithm;
            if (digest)
                algorithm = Checksum::AlgorithmNamed(digest->format);
            if (!algorithm)
                return std::nullopt;
            return ExpectedDigest{*algorithm, digest->value, listed->generation};
        }
        if (folder == "/" || folder == ".")
            return std::nullopt;
        folder = Fnd::PathUtils::FolderOf(folder);
    }
}

void CopyHistories::Record(const BatchRun& run) {
    std::unordered_map<std::int64_t, TaskFiles> byTask;
    for (const FileRecord& file : run.files)
        if (file.state == FileState::Verified || file.state == FileState::Skipped)
            byTask[file.task].files.push_back(&file);
    for (const RunTask& task : run.tasks) {
        if (task.record.kind != TaskKind::Copy || task.finished)
            continue;
        const auto found = byTask.find(task.id);
        if (found == byTask.end())
            continue;
        TaskFiles& files = found->second;
        std::vector<std::string> sources, targets;
        for (const FileRecord* file : files.files) {
            if (!file->checksumAlgorithm.empty())
                files.format = file->checksumAlgorithm;
            // A folder's own record stands for the folder, not for an entry of its parent.
            const std::string target = WhereItStands(*file);
            const bool folder = IsFolder(target);
            sources.push_back(Fnd::ToUTF8(file->source) + (folder ? "/." : ""));
            targets.push_back(target + (folder ? "/." : ""));
        }
        const IngestedFolder folder = IngestedFolderOf(sources, targets);
        try {
            WriteGeneration(folder, files, startedAt_);
        } catch (const std::exception& error) {
            problems_[task.id] = "ASC MHL history not written in " + folder.target + ": " + error.what();
        }
    }
}

void CopyHistories::Amend(const RunTask& task, TaskResult& result) const {
    const auto found = problems_.find(task.id);
    if (found != problems_.end())
        result.Fail(found->second);
}

} // namespace QL::Engine
