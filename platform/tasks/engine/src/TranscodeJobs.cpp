#include "TranscodeJobs.h"

#include <map>
#include <string>
#include <unordered_map>

namespace QL::Engine {
namespace {

// The identity of what a job decodes: paths and points of its clips.
std::string KeyOf(const std::vector<IngestTask::TranscodeClipEntry>& clips) {
    std::string key;
    for (const IngestTask::TranscodeClipEntry& clip : clips) {
        key += Fnd::ToUTF8(clip.path);
        key += '\0';
        key += std::to_string(clip.inPoint) + ':' + std::to_string(clip.outPoint);
        key += '\0';
    }
    return key;
}

} // namespace

std::vector<TranscodeJob> TranscodeJobsOf(const BatchRun& run) {
    std::unordered_map<std::int64_t, const RunTask*> transcodeTasks;
    for (const RunTask& task : run.tasks)
        if (task.record.kind == TaskKind::Transcode || task.record.kind == TaskKind::Concatenate)
            transcodeTasks.emplace(task.id, &task);

    std::vector<TranscodeJob> jobs;
    std::unordered_map<std::string, std::size_t> jobOfKey;
    for (std::size_t index = 0; index < run.files.size(); ++index) {
        const FileRecord& file = run.files[index];
        const auto task = transcodeTasks.find(file.task);
        if (task == transcodeTasks.end() || file.state != FileState::Pending)
            continue;
        const TranscodeTaskRecord& record = task->second->record.Transcode();
        std::vector<IngestTask::TranscodeClipEntry> clips;
        if (task->second->record.kind == TaskKind::Concatenate) {
            clips.assign(record.clips.begin(), record.clips.end());
        } else if (file.unit < record.clips.size()) {
            clips.push_back(*std::next(record.clips.begin(), file.unit));
        }
        if (clips.empty())
            continue;
        const auto [found, added] = jobOfKey.emplace(KeyOf(clips), jobs.size());
        if (added)
            jobs.push_back(TranscodeJob{std::move(clips), {}});
        jobs[found->second].outputs.push_back(index);
    }
    return jobs;
}

} // namespace QL::Engine
