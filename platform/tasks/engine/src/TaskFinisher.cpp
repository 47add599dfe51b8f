#include "TaskFinisher.h"

#include <algorithm>
#include <exception>
#include <unordered_map>

#include "Fnd/PathUtils.h"
#include "ImportMetadata.h"
#include "QL/XmpSidecarWriter.h"

namespace QL::Engine {
namespace {

bool Landed(const FileRecord* file) {
    return file && (file->state == FileState::Verified || file->state == FileState::Skipped);
}

Proj::ProjectItem ProjectItemFrom(const IngestItem& item, const Fnd::WString& path, const Fnd::WString& bin) {
    Proj::ProjectItem projectItem;
    projectItem.path = path;
    projectItem.name = item.name.empty() ? Fnd::PathUtils::FileNameOf(path) : item.name;
    projectItem.format = item.format;
    projectItem.inPoint = item.inPoint;
    projectItem.outPoint = item.outPoint;
    projectItem.frameRate = item.frameRate;
    projectItem.bin = bin;
    return projectItem;
}

template <class Map, class Key> const typename Map::mapped_type* Find(const Map& map, const Key& key) {
    const auto found = map.find(key);
    return found == map.end() ? nullptr : &found->second;
}

// The project keeps the digest each file was copied with, so that the item can be checked later.
void AddDigest(Proj::ProjectItem& item, const FileRecord& file, const Fnd::WString& path) {
    if (!file.checksum.empty() && !file.checksumAlgorithm.empty())
        item.digests.push_back(Proj::FileDigest{path, file.checksumAlgorithm, file.checksum});
}

} // namespace

void TaskResult::Fail(const std::string& why) {
    if (status == OutcomeStatus::Succeeded)
        status = OutcomeStatus::Failed;
    if (reason.empty())
        reason = why;
}

TaskResult TaskFinisher::Finish(const RunTask& task, const std::vector<const FileRecord*>& files) {
    switch (task.record.kind) {
    case TaskKind::Copy:
        return FinishCopy(task, files);
    case TaskKind::Import:
        return FinishImport(task);
    case TaskKind::UpdateMetadata:
        return FinishUpdateMetadata(task);
    case TaskKind::Transcode:
    case TaskKind::Concatenate:
        break;
    }
    return FinishTranscode(task, files);
}

TaskResult TaskFinisher::FinishTranscode(const RunTask& task, const std::vector<const FileRecord*>& files) {
    TaskResult result;
    const TranscodeTaskRecord& record = task.record.Transcode();
    const IngestCustomData diskMetadata = MetadataForDestination(task.record.data, record.addToProject);
    std::vector<Proj::ProjectItem> imports;
    for (const FileRecord* file : files) {
        if (file->state == FileState::Failed || file->state == FileState::Cancelled) {
            ++result.filesFailed;
            const std::string source = Fnd::ToUTF8(file->source);
            // Reasons of the media layer name the file they concern already.
            result.Fail(file->reason.find(source) == std::string::npos ? source + ": " + file->reason : file->reason);
            continue;
        }
        if (!Landed(file))
            continue;
        const Fnd::WString finalPath = file->finalPath.empty() ? file->target : Fnd::FromUTF8(file->finalPath);
        Proj::ProjectItem item;
        item.path = finalPath;
        item.name = Fnd::PathUtils::StemOf(finalPath);
        item.bin = run_.targetBin;
        WriteSidecar(item, diskMetadata, result);
        if (record.addToProject)
            imports.push_back(std::move(item));
    }
    ImportAll(std::move(imports), task.record.data, result);
    return result;
}

TaskResult TaskFinisher::FinishCopy(const RunTask& task, const std::vector<const FileRecord*>& files) {
    TaskResult result;
    const IngestTask::CopySetting& setting = task.record.Copy();
    const IngestCustomData diskMetadata = MetadataForDestination(task.record.data, setting.addToProject);

    std::unordered_map<Fnd::WString, const FileRecord*> byTarget;
    std::vector<std::vector<const FileRecord*>> byUnit(setting.units.size());
    for (const FileRecord* file : files) {
        byTarget.emplace(file->target, file);
        if (file->unit < byUnit.size()) {
            auto& unitFiles = byUnit[file->unit];
            if (unitFiles.size() <= file->entry)
                unitFiles.resize(file->entry + 1, nullptr);
            unitFiles[file->entry] = file;
        }
        if (file->state == FileState::Failed) {
            ++result.filesFailed;
            result.Fail(Fnd::ToUTF8(file->source) + ": " + file->reason);
        }
    }
    // Files of one batch may share a target (kept both, or skipped for an earlier one): a unit's
    // own file comes first.
    // A card is one unit of thousands of files: its own files are looked up by target, not walked.
    std::unordered_map<Fnd::WString, const FileRecord*> unitByTarget;
    const auto fileIn = [&](const Fnd::WString& target) -> const FileRecord* {
        if (const auto own = unitByTarget.find(target); own != unitByTarget.end())
            return own->second;
        const auto found = byTarget.find(target);
        return found == byTarget.end() ? nullptr : found->second;
    };
    const auto whereItStands = [](const FileRecord& file) {
        return file.finalPath.empty() ? file.target : Fnd::FromUTF8(file.finalPath);
    };

    std::vector<Proj::ProjectItem> imports;
    std::size_t unitIndex = 0;
    for (const IngestTask::CopyUnitRef& unit : setting.units) {
        const std::vector<const FileRecord*>& unitFiles = byUnit[unitIndex++];
        unitByTarget.clear();
        for (const FileRecord* file : unitFiles)
            if (file)
                unitByTarget.emplace(file->target, file);
        for (const auto& [target, item] : unit->importItems) {
            const FileRecord* main = fileIn(target);
            if (!Landed(main))
                continue; // its failure is counted with the files
            const Fnd::WString finalPath = whereItStands(*main);
            Proj::ProjectItem projectItem = ProjectItemFrom(*item, finalPath, run_.targetBin);
            if (const Fnd::WString* rename = Find(unit->renames, target))
                projectItem.name = *rename;
            else if (finalPath != target && item->name == Fnd::PathUtils::FileNameOf(target))
                projectItem.name =
                    Fnd::PathUtils::FileNameOf(finalPath); // kept both: the item is the new file
            if (const fluxcore::utility::Guid* guid = Find(unit->clipGuids, target))
                projectItem.clipGuid = *guid;

            // Side files are found by their target; a renamed sidecar's target differs from the
            // item's record of it, and then its place in the unit tells.
            const bool oneItem = unit->importItems.size() == 1;
            for (std::size_t e = 0; e < item->extraPaths.size(); ++e) {
                const FileRecord* side = fileIn(item->extraPaths[e]);
                if (!side && oneItem && e + 1 < unitFiles.size())
                    side = unitFiles[e + 1];
                if (side != main && Landed(side)) {
                    projectItem.extraPaths.push_back(whereItStands(*side));
                    AddDigest(projectItem, *side, projectItem.extraPaths.back());
                }
            }
            // A skipped target is the user's file as it stands: nothing is written into it.
            if (main->state == FileState::Verified)
                WriteSidecar(projectItem, diskMetadata, result);
            AddDigest(projectItem, *main, finalPath);
            if (setting.addToProject)
                imports.push_back(std::move(projectItem));
        }
    }
    ImportAll(std::move(imports), task.record.data, result);
    return result;
}

TaskResult TaskFinisher::FinishImport(const RunTask& task) {
    TaskResult result;
    std::vector<Proj::ProjectItem> imports;
    for (const auto& [path, item] : task.record.Import().importItems) {
        if (!Fnd::PathUtils::ExistsOnDisk(item->path, false)) {
            result.Fail(Fnd::ToUTF8(item->path) + ": not found");
            continue;
        }
        Proj::ProjectItem projectItem = ProjectItemFrom(*item, item->path, run_.targetBin);
        projectItem.extraPaths = item->extraPaths;
        WriteSidecar(projectItem, task.record.data, result);
        imports.push_back(std::move(projectItem));
    }
    ImportAll(std::move(imports), task.record.data, result);
    return result;
}

TaskResult TaskFinisher::FinishUpdateMetadata(const RunTask& task) {
    TaskResult result;
    const IngestTask::UpdateMetadataSetting& setting = task.record.UpdateMetadata();
    const std::vector<Proj::ItemMetadata> metadata = ProjectMetadata(task.record.data);
    std::vector<Proj::ProjectItem> imports;
    for (const auto& [path, item] : setting.importItems) {
        if (!Fnd::PathUtils::ExistsOnDisk(item->path, false)) {
            result.Fail(Fnd::ToUTF8(item->path) + ": not found");
            continue;
        }
        Proj::ProjectItem projectItem = ProjectItemFrom(*item, item->path, run_.targetBin);
        projectItem.extraPaths = item->extraPaths;
        // The media keeps its name on disk; the new name is the item's.
        const Fnd::WString* rename = Find(setting.renames, path);
        if (!rename)
            rename = Find(setting.renames, item->path);
        if (rename)
            projectItem.name = *rename;
        if (const fluxcore::utility::Guid* guid = Find(setting.clipGuids, item->path))
            projectItem.clipGuid = *guid;
        WriteSidecar(projectItem, task.record.data, result);

        if (setting.addToProject) {
            imports.push_back(std::move(projectItem));
            continue;
        }
        // Without import, only an item the project holds already takes the name and metadata.
        Proj::Project* project = OpenProject(result);
        if (!project)
            continue;
        try {
            if (rename)
                project->RenameItem(projectItem.path, projectItem.name);
            if (!metadata.empty())
                project->MergeMetadata(projectItem.path, metadata);
        } catch (const std::exception& error) {
            result.Fail(error.what());
        }
    }
    ImportAll(std::move(imports), task.record.data, result);
    return result;
}

void TaskFinisher::WriteSidecar(Proj::ProjectItem& item, const IngestCustomData& metadata,
                                TaskResult& result) {
    if (!CarriesMetadata(metadata))
        return;
    const Fnd::WString sidecar = SidecarPathFor(item.path, item.extraPaths);
    try {
        WriteXmpSidecar(Fnd::ToUTF8(sidecar), metadata);
        result.written.push_back(Fnd::ToUTF8(sidecar));
        if (std::find(item.extraPaths.begin(), item.extraPaths.end(), sidecar) == item.extraPaths.end())
            item.extraPaths.push_back(sidecar);
    } catch (const std::exception& error) {
        result.Fail(error.what());
    }
}

void TaskFinisher::ImportAll(std::vector<Proj::ProjectItem> items, const IngestCustomData& data,
                             TaskResult& result) {
    std::erase_if(items, [this](const Proj::ProjectItem& item) { return imported_.contains(item.path); });
    if (items.empty())
        return;
    Proj::Project* project = OpenProject(result);
    if (!project)
        return;
    const std::vector<Proj::ItemMetadata> metadata = ProjectMetadata(data);
    for (Proj::ProjectItem& item : items)
        item.metadata = metadata;
    try {
        // One transaction for the task: a large card is imported at once, or not at all.
        std::unordered_set<Fnd::WString> paths;
        for (const Proj::ProjectItem& item : items)
            paths.insert(item.path);
        project->ImportItems(items);
        result.itemsImported += paths.size();
        imported_.merge(paths);
    } catch (const std::exception& error) {
        result.Fail(error.what());
    }
}

Proj::Project* TaskFinisher::OpenProject(TaskResult& result) {
    if (!project_ && projectError_.empty()) {
        try {
            project_ = Proj::Project::Open(run_.projectPath);
        } catch (const std::exception& error) {
            projectError_ = error.what();
        }
    }
    if (!project_)
        result.Fail(projectError_);
    return project_.get();
}

} // namespace QL::Engine
