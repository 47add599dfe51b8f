#include "QL/Engine/TaskRecord.h"

#include <memory>

namespace QL::Engine {
namespace {

MetadataFieldSetList DeepCopy(const MetadataFieldSetList& sets) {
    MetadataFieldSetList copy;
    for (const auto& set : sets)
        if (set)
            copy.push_back(std::make_shared<MetadataFieldSet>(*set));
    return copy;
}

} // namespace

IngestItemMap DeepCopy(const IngestItemMap& items) {
    IngestItemMap copy;
    for (const auto& [path, item] : items)
        if (item)
            copy.emplace_hint(copy.end(), path, std::make_shared<IngestItem>(*item));
    return copy;
}

IngestCustomData DeepCopy(const IngestCustomData& data) {
    IngestCustomData copy;
    copy.metadataSets = DeepCopy(data.metadataSets);
    copy.minimumMetadata.namespaces = DeepCopy(data.minimumMetadata.namespaces);
    copy.minimumMetadata.keywords = data.minimumMetadata.keywords;
    copy.minimumMetadata.storeEmptyInfo = data.minimumMetadata.storeEmptyInfo;
    copy.minimumMetadata.applyToAllDestinations = data.minimumMetadata.applyToAllDestinations;
    return copy;
}

TaskRecord MakeCopyRecord(const IngestTask::CopySetting& setting, const IngestCustomData& data) {
    IngestTask::CopySetting copy;
    copy.verifyMode = setting.verifyMode;
    copy.addToProject = setting.addToProject;
    for (const IngestTask::CopyUnitRef& unit : setting.units) {
        if (!unit)
            continue;
        IngestTask::CopyUnitRef own(new IngestTask::CopyUnit);
        own->entries = unit->entries;
        own->importItems = DeepCopy(unit->importItems);
        own->renames = unit->renames;
        own->clipGuids = unit->clipGuids;
        copy.units.push_back(std::move(own));
    }
    return TaskRecord{TaskKind::Copy, std::move(copy), DeepCopy(data)};
}

TaskRecord MakeTranscodeRecord(TaskKind kind, const IngestTask::TranscodeSetting& setting,
                               const IngestCustomData& data) {
    TranscodeTaskRecord record;
    record.presetName = setting.presetName;
    record.exporterName = setting.exporterName;
    record.clips = setting.clips;
    record.sourceRoot = setting.sourceRoot;
    record.outputPath = setting.outputPath;
    record.addToProject = setting.addToProject;
    record.concatenateName = setting.concatenateName;
    return TaskRecord{kind, std::move(record), DeepCopy(data)};
}

TaskRecord MakeImportRecord(const IngestTask::ImportSetting& setting, const IngestCustomData& data) {
    IngestTask::ImportSetting copy;
    copy.importItems = DeepCopy(setting.importItems);
    return TaskRecord{TaskKind::Import, std::move(copy), DeepCopy(data)};
}

TaskRecord MakeUpdateMetadataRecord(const IngestTask::UpdateMetadataSetting& setting,
                                    const IngestCustomData& data) {
    IngestTask::UpdateMetadataSetting copy = setting;
    copy.importItems = DeepCopy(setting.importItems);
    return TaskRecord{TaskKind::UpdateMetadata, std::move(copy), DeepCopy(data)};
}

} // namespace QL::Engine
