#include "support/RecordingTaskService.h"

#include <memory>

namespace igd::test {
namespace {

// Settings hold their items, units and metadata by pointer; a record that shared them with the
// caller would change when the caller reuses its objects, and hide exactly the faults a test
// is after.
QL::IngestItemMap DeepCopy(const QL::IngestItemMap& items) {
    QL::IngestItemMap copy;
    for (const auto& [path, item] : items)
        copy.emplace(path, item ? std::make_shared<QL::IngestItem>(*item) : nullptr);
    return copy;
}

QL::MetadataFieldSetList DeepCopy(const QL::MetadataFieldSetList& sets) {
    QL::MetadataFieldSetList copy;
    for (const auto& set : sets)
        copy.push_back(set ? std::make_shared<QL::MetadataFieldSet>(*set) : nullptr);
    return copy;
}

QL::IngestCustomData DeepCopy(const QL::IngestCustomData& data) {
    QL::IngestCustomData copy = data;
    copy.metadataSets = DeepCopy(data.metadataSets);
    copy.minimumMetadata.namespaces = DeepCopy(data.minimumMetadata.namespaces);
    return copy;
}

QL::IngestTask::CopySetting DeepCopy(const QL::IngestTask::CopySetting& setting) {
    QL::IngestTask::CopySetting copy = setting;
    copy.units.clear();
    for (const QL::IngestTask::CopyUnitRef& unit : setting.units) {
        if (!unit) {
            copy.units.push_back(nullptr);
            continue;
        }
        QL::IngestTask::CopyUnitRef unitCopy(new QL::IngestTask::CopyUnit(*unit));
        unitCopy->importItems = DeepCopy(unit->importItems);
        copy.units.push_back(unitCopy);
    }
    return copy;
}

QL::IngestTask::ImportSetting DeepCopy(const QL::IngestTask::ImportSetting& setting) {
    return QL::IngestTask::ImportSetting{DeepCopy(setting.importItems)};
}

QL::IngestTask::UpdateMetadataSetting DeepCopy(const QL::IngestTask::UpdateMetadataSetting& setting) {
    QL::IngestTask::UpdateMetadataSetting copy = setting;
    copy.importItems = DeepCopy(setting.importItems);
    return copy;
}

} // namespace

void RecordingTaskService::SubmitCopyTask(const QL::IngestTask::CopySetting& setting,
                                          const fluxcore::utility::Guid& batch,
                                          const QL::IngestCustomData& data) {
    tasks_.push_back({TaskKind::Copy, batch, DeepCopy(setting), DeepCopy(data)});
}

void RecordingTaskService::SubmitTranscodeTask(const QL::IngestTask::TranscodeSetting& setting,
                                               const fluxcore::utility::Guid& batch,
                                               const QL::IngestCustomData& data) {
    tasks_.push_back({TaskKind::Transcode, batch, setting, DeepCopy(data)});
}

void RecordingTaskService::SubmitConcatenateTask(const QL::IngestTask::TranscodeSetting& setting,
                                                 const fluxcore::utility::Guid& batch,
                                                 const QL::IngestCustomData& data) {
    tasks_.push_back({TaskKind::Concatenate, batch, setting, DeepCopy(data)});
}

void RecordingTaskService::SubmitImportTask(const QL::IngestTask::ImportSetting& setting,
                                            const fluxcore::utility::Guid& batch,
                                            const QL::IngestCustomData& data) {
    tasks_.push_back({TaskKind::Import, batch, DeepCopy(setting), DeepCopy(data)});
}

void RecordingTaskService::SubmitUpdateMetadataTask(const QL::IngestTask::UpdateMetadataSetting& setting,
                                                    const fluxcore::utility::Guid& batch,
                                                    const QL::IngestCustomData& data) {
    tasks_.push_back({TaskKind::UpdateMetadata, batch, DeepCopy(setting), DeepCopy(data)});
}

bool RecordingTaskService::IsPathInCopyList(const Fnd::WString& path) const {
    return pathsInCopyList_.contains(path);
}

ScopedTaskService::ScopedTaskService() : service_(std::make_shared<RecordingTaskService>()) {
    QL::IngestTask::SetTaskService(service_);
}

ScopedTaskService::~ScopedTaskService() {
    QL::IngestTask::SetTaskService(nullptr);
}

} // namespace igd::test
