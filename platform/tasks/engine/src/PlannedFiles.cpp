#include "PlannedFiles.h"

namespace QL::Engine {

std::vector<FileRecord> PlannedFiles(const TaskRecord& record, std::int64_t task) {
    std::vector<FileRecord> files;
    if (record.kind != TaskKind::Copy)
        return files;
    std::uint32_t unitIndex = 0;
    for (const IngestTask::CopyUnitRef& unit : record.Copy().units) {
        std::uint32_t entryIndex = 0;
        for (const CopyEntry& entry : unit->entries) {
            FileRecord file;
            file.task = task;
            file.unit = unitIndex;
            file.entry = entryIndex++;
            file.source = entry.source;
            file.target = entry.target;
            file.action = entry.action;
            files.push_back(std::move(file));
        }
        ++unitIndex;
    }
    return files;
}

} // namespace QL::Engine
