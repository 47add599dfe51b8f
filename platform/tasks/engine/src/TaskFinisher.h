#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "BatchRun.h"
#include "Proj/Project.h"
#include "QL/Engine/TaskServiceMessages.h"

namespace QL::Engine {

struct TaskResult {
    OutcomeStatus status = OutcomeStatus::Succeeded;
    std::string reason; // the first thing that went wrong
    std::uint64_t filesFailed = 0;
    std::uint64_t itemsImported = 0;
    // Files the task wrote beside its copies (XMP sidecars), for the destination's history.
    std::vector<std::string> written;

    void Fail(const std::string& why);
};

// The second half of a task, once its copies are settled: items into the project (in the start
// message's bin), metadata into XMP sidecars and the project, names from the renames. Items of
// copies that failed are left out; a skipped target is imported as it stands, untouched.
// The project is opened on first need, by the worker that runs the batch.
class TaskFinisher {
public:
    explicit TaskFinisher(const BatchRun& run) : run_(run) {}

    TaskResult Finish(const RunTask& task, const std::vector<const FileRecord*>& files);

private:
    TaskResult FinishCopy(const RunTask& task, const std::vector<const FileRecord*>& files);
    // The files a transcode or stitch wrote, imported by their names, with the metadata's sidecars.
    TaskResult FinishTranscode(const RunTask& task, const std::vector<const FileRecord*>& files);
    TaskResult FinishImport(const RunTask& task);
    TaskResult FinishUpdateMetadata(const RunTask& task);

    // Writes the metadata, when there is any, into the item's sidecar, which then is one of its
    // side files.
    void WriteSidecar(Proj::ProjectItem& item, const IngestCustomData& metadata, TaskResult& result);
    // Imports the task's items with the custom data as their metadata.
    void ImportAll(std::vector<Proj::ProjectItem> items, const IngestCustomData& data, TaskResult& result);
    Proj::Project* OpenProject(TaskResult& result);

    const BatchRun& run_;
    std::unique_ptr<Proj::Project> project_;
    std::string projectError_;
    // Paths given an item by this run: a later file of the batch that stands at one of them (one
    // skipped in favour of an earlier copy) adds no second item, nor does it count as one.
    std::unordered_set<Fnd::WString> imported_;
};

} // namespace QL::Engine
