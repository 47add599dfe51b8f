#include "ResumePreparation.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "FileComparison.h"
#include "LeftTemporaries.h"
#include "Fnd/PathUtils.h"
#include "QL/CopySetting.h"
#include "QL/Engine/FileCopier.h"

namespace QL::Engine {
namespace {

void RemoveTemporary(const std::string& path) {
    // Only ever a name the copier would have made: a journal cannot make resume delete media.
    if (!path.empty() && FileCopier::IsTemporaryName(Fnd::PathUtils::FileNameOf(path)))
        ::unlink(path.c_str());
}

bool SameTime(const struct stat& a, const struct stat& b) {
    return a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

// A target that the interrupted copy had already renamed into place: the copier gives a copy its
// source's time just before the rename, so the same size and time point at it; the content check
// of the verify mode then decides.
bool AdoptFinishedCopy(FileRecord& file, std::uint32_t verifyMode) {
    if (file.action != kCopyActionNone && file.action != kCopyActionReplace)
        return false;
    const std::string source = Fnd::ToUTF8(file.source);
    const std::string target = Fnd::ToUTF8(file.target);
    struct stat sourceStat {};
    struct stat targetStat {};
    if (::stat(source.c_str(), &sourceStat) != 0 || ::stat(target.c_str(), &targetStat) != 0)
        return false;
    if (!S_ISREG(sourceStat.st_mode) || !S_ISREG(targetStat.st_mode) ||
        sourceStat.st_size != targetStat.st_size || !SameTime(sourceStat, targetStat))
        return false;
    std::string checksum;
    std::string algorithm;
    if (!CopyMatchesSource(source, target, verifyMode, checksum, algorithm))
        return false;
    file.state = FileState::Verified;
    file.finalPath = target;
    file.checksum = checksum;
    file.checksumAlgorithm = algorithm;
    file.size = static_cast<std::uint64_t>(targetStat.st_size);
    file.temporary.clear();
    file.reason.clear();
    return true;
}

enum class Kept { Yes, Gone, Changed };

Kept StillComplete(const FileRecord& file) {
    const std::string path = file.finalPath.empty() ? Fnd::ToUTF8(file.target) : file.finalPath;
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0)
        return Kept::Gone;
    if (S_ISDIR(info.st_mode) || static_cast<std::uint64_t>(info.st_size) == file.size)
        return Kept::Yes;
    return Kept::Changed;
}

// A transcode journals the name of its checked file before it gives it: the temporary gone and a
// file standing under that name mean the rename happened and only its record was lost.
std::vector<bool> NamedBeforeTheCrash(const std::vector<FileRecord>& files) {
    std::vector<bool> named(files.size(), false);
    for (std::size_t i = 0; i < files.size(); ++i) {
        const FileRecord& file = files[i];
        if (file.state != FileState::Copying || file.finalPath.empty() || file.temporary.empty())
            continue;
        struct stat info {};
        named[i] = ::lstat(file.temporary.c_str(), &info) != 0 && errno == ENOENT &&
                   ::lstat(file.finalPath.c_str(), &info) == 0 && S_ISREG(info.st_mode);
    }
    return named;
}

} // namespace

ResumeFindings PrepareForResume(std::vector<FileRecord>& files,
                                const std::unordered_map<std::int64_t, std::uint32_t>& verifyModeOfTask,
                                RunJournal& journal) {
    ResumeFindings findings;
    const std::vector<bool> named = NamedBeforeTheCrash(files);
    // Sidecars are written after their files are verified: any file may have left one.
    RemoveLeftTemporaries(files);
    std::vector<const FileRecord*> updated;
    for (std::size_t i = 0; i < files.size(); ++i) {
        FileRecord& file = files[i];
        if (file.state == FileState::Skipped)
            continue;
        if (named[i]) {
            struct stat info {};
            ::stat(file.finalPath.c_str(), &info);
            file.state = FileState::Verified;
            file.size = static_cast<std::uint64_t>(info.st_size);
            file.temporary.clear();
            file.reason.clear();
            findings.alreadyCopied.push_back(i);
            updated.push_back(&file);
            continue;
        }
        if (file.state == FileState::Verified) {
            switch (StillComplete(file)) {
            case Kept::Yes:
                findings.alreadyCopied.push_back(i);
                continue;
            case Kept::Changed:
                file.state = FileState::Failed;
                file.reason = "changed on disk since it was verified";
                findings.changed.push_back(i);
                updated.push_back(&file);
                continue;
            case Kept::Gone:
                break;
            }
        }
        RemoveTemporary(file.temporary);
        RemoveTemporary(FileCopier::TemporaryPathFor(Fnd::ToUTF8(file.target)));
        const auto mode = verifyModeOfTask.find(file.task);
        if (AdoptFinishedCopy(file,
                              mode == verifyModeOfTask.end() ? IngestTask::kVerifyNone : mode->second)) {
            findings.alreadyCopied.push_back(i);
        } else {
            file.state = FileState::Pending;
            file.temporary.clear();
            file.finalPath.clear();
            file.checksum.clear();
            file.reason.clear();
            file.size = 0;
        }
        updated.push_back(&file);
    }
    journal.UpdateFiles(updated);
    return findings;
}

} // namespace QL::Engine
