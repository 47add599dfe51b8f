#include "PlannedFiles.h"

#include <unordered_set>

#include "QL/CopySetting.h"
#include "TranscodeTargets.h"

namespace QL::Engine {

std::vector<FileRecord> PlannedFiles(const TaskRecord& record, std::int64_t task) {
    std::vector<FileRecord> files;
    if (record.kind == TaskKind::Transcode || record.kind == TaskKind::Concatenate) {
        // A transcode writes new files and asks nothing: one that finds its name taken keeps both.
        for (const TranscodeTarget& output : TranscodeTargets(record.kind, record.Transcode())) {
            FileRecord file;
            file.task = task;
            file.unit = output.clip;
            file.source = output.source;
            file.target = output.target;
            file.action = kCopyActionKeepBoth;
            files.push_back(std::move(file));
        }
        return files;
    }
    if (record.kind != TaskKind::Copy)
        return files;
    std::uint32_t unitIndex = 0;
    for (const IngestTask::CopyUnitRef& unit : record.Copy().units) {
        std::uint32_t entryIndex = 0;
        // A clip's own file usually stands again among its extra paths, under the name it had
        // before any rename. One copy is what the user asked for: the first, under the item's
        // target. Entries keep their places, so that the rest are still found by position.
        std::unordered_set<Fnd::WString> sources;
        for (const CopyEntry& entry : unit->entries) {
            if (!sources.insert(entry.source).second) {
                ++entryIndex;
                continue;
            }
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
