#pragma once
#include <list>
#include <variant>

#include "Fnd/WString.h"
#include "QL/CopySetting.h"
#include "QL/Engine/TaskKind.h"
#include "QL/ImportSetting.h"
#include "QL/IngestCustomData.h"
#include "QL/TranscodeSetting.h"
#include "QL/UpdateMetadataSetting.h"

namespace QL::Engine {

// What a transcode or concatenate task keeps of its setting: everything but the live encoder
// objects and the callback, which cannot outlive the request or be stored.
struct TranscodeTaskRecord {
    Fnd::WString presetName;
    Fnd::WString exporterName;
    std::list<IngestTask::TranscodeClipEntry> clips;
    Fnd::WString sourceRoot;
    Fnd::WString outputPath;
    bool addToProject = false;
    Fnd::WString concatenateName;
};

// One submitted task as the service keeps it: a deep copy owned by the service, so the caller may
// change or drop its objects, and a worker thread never shares one with the UI thread.
struct TaskRecord {
    TaskKind kind = TaskKind::Copy;
    std::variant<IngestTask::CopySetting, TranscodeTaskRecord, IngestTask::ImportSetting,
                 IngestTask::UpdateMetadataSetting>
        setting;
    IngestCustomData data;

    const IngestTask::CopySetting& Copy() const { return std::get<IngestTask::CopySetting>(setting); }
    const TranscodeTaskRecord& Transcode() const { return std::get<TranscodeTaskRecord>(setting); }
    const IngestTask::ImportSetting& Import() const { return std::get<IngestTask::ImportSetting>(setting); }
    const IngestTask::UpdateMetadataSetting& UpdateMetadata() const {
        return std::get<IngestTask::UpdateMetadataSetting>(setting);
    }
};

TaskRecord MakeCopyRecord(const IngestTask::CopySetting& setting, const IngestCustomData& data);
TaskRecord MakeTranscodeRecord(TaskKind kind, const IngestTask::TranscodeSetting& setting,
                               const IngestCustomData& data);
TaskRecord MakeImportRecord(const IngestTask::ImportSetting& setting, const IngestCustomData& data);
TaskRecord MakeUpdateMetadataRecord(const IngestTask::UpdateMetadataSetting& setting,
                                    const IngestCustomData& data);

// Copies that share nothing with the original: units, items and metadata sets are new objects.
IngestItemMap DeepCopy(const IngestItemMap& items);
IngestCustomData DeepCopy(const IngestCustomData& data);

} // namespace QL::Engine
