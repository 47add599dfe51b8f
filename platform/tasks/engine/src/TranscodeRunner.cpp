#include "TranscodeRunner.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <filesystem>
#include <map>
#include <optional>

#include "Av/EncoderList.h"
#include "Av/MediaError.h"
#include "Av/Transcoder.h"
#include "BatchCopier.h"
#include "ClipSources.h"
#include "Fnd/PathUtils.h"
#include "QL/CopySetting.h"
#include "QL/Engine/FileCopier.h"

namespace QL::Engine {
namespace {

// Past this many "name (n)" files beside it a folder is full of leftovers; the transcode gives up.
constexpr unsigned kMostNumberedNames = 100000;

// Written data reaches the medium before the name says the file is whole.
int Flush(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return errno;
    const int result = ::fsync(fd) == 0 ? 0 : errno;
    ::close(fd);
    return result;
}

void FlushFolder(const std::string& path) {
    const int fd = ::open(Fnd::PathUtils::FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

std::string Quoted(const Fnd::WString& text) {
    return "\"" + Fnd::ToUTF8(text) + "\"";
}

} // namespace

void TranscodeRunner::RunAll() {
    for (const RunTask& task : run_.tasks)
        if (task.record.kind == TaskKind::Transcode || task.record.kind == TaskKind::Concatenate)
            records_.emplace(task.id, &task.record.Transcode());
    const std::vector<TranscodeJob> jobs = TranscodeJobsOf(run_);
    for (std::size_t j = 0; j < jobs.size(); ++j) {
        if (!run_.control->Checkpoint()) {
            for (std::size_t rest = j; rest < jobs.size(); ++rest) {
                for (std::size_t output : jobs[rest].outputs)
                    Settle(output, FileState::Cancelled, {});
                Report(jobs[rest].outputs);
            }
            break;
        }
        Run(jobs[j]);
    }
    run_.progress->MediaEnded();
}

void TranscodeRunner::Run(const TranscodeJob& job) {
    Av::TranscodeRequest request;
    std::vector<std::size_t> writing; // outputs of the request, in its order
    for (std::size_t output : job.outputs) {
        FileRecord& file = run_.files[output];
        const auto found = records_.find(file.task);
        const TranscodeTaskRecord* record = found == records_.end() ? nullptr : found->second;
        const auto settings =
            record ? Av::FindEncoderSettings(record->exporterName, record->presetName) : std::nullopt;
        if (!settings) {
            Settle(output, FileState::Failed,
                   record ? "the encoder preset " + Quoted(record->presetName) + " of " + Quoted(record->exporterName) +
                                " is not installed"
                          : "its task is gone");
            continue;
        }
        if (!run_.journalProblem.empty()) {
            Settle(output, FileState::Failed, "not transcoded, since a crash could not be resumed: " + run_.journalProblem);
            continue;
        }
        const std::string target = Fnd::ToUTF8(file.target);
        std::error_code madeError;
        std::filesystem::create_directories(Fnd::PathUtils::FolderOf(target), madeError);
        if (madeError) {
            Settle(output, FileState::Failed, "cannot make the folder of " + target + ": " + madeError.message());
            continue;
        }
        if (const int error = FileCopier::CreateTemporaryFile(target, file.temporary); error != 0) {
            Settle(output, FileState::Failed, "cannot write beside " + target + ": " + std::strerror(error));
            continue;
        }
        file.state = FileState::Copying;
        request.outputs.push_back(Av::TranscodeOutput{file.temporary, *settings});
        writing.push_back(output);
    }
    if (writing.empty()) {
        Report(job.outputs);
        return;
    }
    std::vector<const FileRecord*> begun;
    for (std::size_t output : writing)
        begun.push_back(&run_.files[output]);
    journal_.UpdateFiles(begun);

    const Fnd::WString clipName = job.clips.front().path;
    request.checkpoint = [this] { return run_.control->Checkpoint(); };
    request.progress = [this, &clipName](const Av::TranscodeProgress& progress) {
        run_.progress->Media(clipName, static_cast<std::uint64_t>(progress.framesDone),
                             static_cast<std::uint64_t>(progress.framesTotal), progress.secondsDone,
                             progress.secondsTotal);
    };
    try {
        for (const IngestTask::TranscodeClipEntry& clip : job.clips)
            request.clips.push_back(ClipSourceOf(clip));
        const Av::TranscodeResult result = Av::Transcode(request);
        for (std::size_t k = 0; k < writing.size(); ++k) {
            const std::size_t output = writing[k];
            if (!result.outputs[k].error.empty()) {
                Settle(output, FileState::Failed, result.outputs[k].error);
                continue;
            }
            try {
                Av::CheckTranscodedFile(run_.files[output].temporary, request.outputs[k].settings,
                                        result.outputs[k].expected);
            } catch (const Av::MediaError& error) {
                Settle(output, FileState::Failed, std::string("the transcoded file does not check: ") + error.what());
                continue;
            }
            Finish(output);
        }
    } catch (const Av::MediaCancelled&) {
        for (std::size_t output : writing)
            Settle(output, FileState::Cancelled, {});
    } catch (const Av::MediaError& error) {
        for (std::size_t output : writing)
            Settle(output, FileState::Failed, error.what());
    }
    Report(job.outputs);
}

void TranscodeRunner::Finish(std::size_t output) {
    FileRecord& file = run_.files[output];
    if (const int error = Flush(file.temporary); error != 0) {
        Settle(output, FileState::Failed, std::string("cannot flush the transcoded file: ") + std::strerror(error));
        return;
    }
    // The name is journalled before it is given: after a crash between the two, resume finds the
    // file under it and keeps it instead of transcoding it again beside itself.
    const std::string target = Fnd::ToUTF8(file.target);
    std::string taken;
    int error = EEXIST;
    for (unsigned n = 0; error == EEXIST && n < kMostNumberedNames; ++n) {
        const std::string candidate = FileCopier::NumberedName(target, n);
        struct stat existing {};
        if (::lstat(candidate.c_str(), &existing) == 0)
            continue;
        file.finalPath = candidate;
        journal_.UpdateFiles({&file});
        error = FileCopier::RenameWithoutReplacing(file.temporary, candidate);
        if (error == 0)
            taken = candidate;
    }
    if (error != 0) {
        file.finalPath.clear();
        Settle(output, FileState::Failed, std::string("cannot give the transcoded file its name: ") + std::strerror(error));
        return;
    }
    FlushFolder(taken);
    struct stat info {};
    file.size = ::stat(taken.c_str(), &info) == 0 ? static_cast<std::uint64_t>(info.st_size) : 0;
    file.state = FileState::Verified;
    file.finalPath = taken;
    file.temporary.clear();
    file.reason.clear();
    ++counters_.filesCopied;
}

void TranscodeRunner::Settle(std::size_t output, FileState state, const std::string& reason) {
    FileRecord& file = run_.files[output];
    if (!file.temporary.empty() && ::unlink(file.temporary.c_str()) == 0)
        file.temporary.clear();
    file.state = state;
    file.reason = reason;
    ++(state == FileState::Cancelled ? counters_.filesCancelled : counters_.filesFailed);
}

void TranscodeRunner::Report(const std::vector<std::size_t>& outputs) {
    std::vector<const FileRecord*> settled;
    for (std::size_t output : outputs)
        settled.push_back(&run_.files[output]);
    journal_.UpdateFiles(settled);
    for (const FileRecord* file : settled) {
        const FileStatus status = file->state == FileState::Verified    ? FileStatus::Transcoded
                                  : file->state == FileState::Cancelled ? FileStatus::Cancelled
                                                                        : FileStatus::Failed;
        BatchCopier::PostOutcome(run_, *file, status, IngestTask::kVerifyNone);
    }
}

} // namespace QL::Engine
