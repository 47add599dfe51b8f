#include "TaskRecordCodec.h"

#include <memory>

#include "ByteRecord.h"

namespace QL::Engine {
namespace {

constexpr std::string_view kSchemaName = "igd.task";
constexpr std::uint32_t kSchemaVersion = 1;

void WriteItems(ByteRecordWriter& out, const IngestItemMap& items) {
    out.U32(static_cast<std::uint32_t>(items.size()));
    for (const auto& [key, item] : items) {
        out.Wide(key);
        out.Wide(item->path);
        out.Wide(item->name);
        out.Wide(item->format);
        out.U32(static_cast<std::uint32_t>(item->extraPaths.size()));
        for (const Fnd::WString& extra : item->extraPaths)
            out.Wide(extra);
        out.I64(item->inPoint);
        out.I64(item->outPoint);
        out.I64(item->frameRate);
    }
}

IngestItemMap ReadItems(ByteRecordReader& in) {
    IngestItemMap items;
    for (std::uint32_t count = in.U32(); count > 0; --count) {
        Fnd::WString key = in.Wide();
        auto item = std::make_shared<IngestItem>();
        item->path = in.Wide();
        item->name = in.Wide();
        item->format = in.Wide();
        for (std::uint32_t extras = in.U32(); extras > 0; --extras)
            item->extraPaths.push_back(in.Wide());
        item->inPoint = in.I64();
        item->outPoint = in.I64();
        item->frameRate = in.I64();
        items.emplace_hint(items.end(), std::move(key), std::move(item));
    }
    return items;
}

void WriteNames(ByteRecordWriter& out, const std::map<Fnd::WString, Fnd::WString>& names) {
    out.U32(static_cast<std::uint32_t>(names.size()));
    for (const auto& [path, name] : names) {
        out.Wide(path);
        out.Wide(name);
    }
}

std::map<Fnd::WString, Fnd::WString> ReadNames(ByteRecordReader& in) {
    std::map<Fnd::WString, Fnd::WString> names;
    for (std::uint32_t count = in.U32(); count > 0; --count) {
        Fnd::WString path = in.Wide();
        names.emplace_hint(names.end(), std::move(path), in.Wide());
    }
    return names;
}

void WriteGuids(ByteRecordWriter& out, const std::map<Fnd::WString, fluxcore::utility::Guid>& guids) {
    out.U32(static_cast<std::uint32_t>(guids.size()));
    for (const auto& [path, guid] : guids) {
        out.Wide(path);
        out.Id(guid);
    }
}

std::map<Fnd::WString, fluxcore::utility::Guid> ReadGuids(ByteRecordReader& in) {
    std::map<Fnd::WString, fluxcore::utility::Guid> guids;
    for (std::uint32_t count = in.U32(); count > 0; --count) {
        Fnd::WString path = in.Wide();
        guids.emplace_hint(guids.end(), std::move(path), in.Id());
    }
    return guids;
}

void WriteSets(ByteRecordWriter& out, const MetadataFieldSetList& sets) {
    out.U32(static_cast<std::uint32_t>(sets.size()));
    for (const auto& set : sets) {
        out.Wide(set->schemaNamespace);
        out.Wide(set->presetName);
        WriteNames(out, set->values);
    }
}

MetadataFieldSetList ReadSets(ByteRecordReader& in) {
    MetadataFieldSetList sets;
    for (std::uint32_t count = in.U32(); count > 0; --count) {
        auto set = std::make_shared<MetadataFieldSet>();
        set->schemaNamespace = in.Wide();
        set->presetName = in.Wide();
        set->values = ReadNames(in);
        sets.push_back(std::move(set));
    }
    return sets;
}

void WriteCustomData(ByteRecordWriter& out, const IngestCustomData& data) {
    WriteSets(out, data.metadataSets);
    WriteSets(out, data.minimumMetadata.namespaces);
    out.U32(static_cast<std::uint32_t>(data.minimumMetadata.keywords.size()));
    for (const Fnd::WString& keyword : data.minimumMetadata.keywords)
        out.Wide(keyword);
    out.Bool(data.minimumMetadata.storeEmptyInfo);
    out.Bool(data.minimumMetadata.applyToAllDestinations);
}

IngestCustomData ReadCustomData(ByteRecordReader& in) {
    IngestCustomData data;
    data.metadataSets = ReadSets(in);
    data.minimumMetadata.namespaces = ReadSets(in);
    for (std::uint32_t count = in.U32(); count > 0; --count)
        data.minimumMetadata.keywords.insert(in.Wide());
    data.minimumMetadata.storeEmptyInfo = in.Bool();
    data.minimumMetadata.applyToAllDestinations = in.Bool();
    return data;
}

void WriteCopy(ByteRecordWriter& out, const IngestTask::CopySetting& setting) {
    out.U32(setting.verifyMode);
    out.Bool(setting.addToProject);
    out.U32(static_cast<std::uint32_t>(setting.units.size()));
    for (const IngestTask::CopyUnitRef& unit : setting.units) {
        out.U32(static_cast<std::uint32_t>(unit->entries.size()));
        for (const CopyEntry& entry : unit->entries) {
            out.Wide(entry.source);
            out.Wide(entry.target);
            out.I32(entry.action);
            out.Bool(entry.isFolder);
        }
        WriteItems(out, unit->importItems);
        WriteNames(out, unit->renames);
        WriteGuids(out, unit->clipGuids);
    }
}

IngestTask::CopySetting ReadCopy(ByteRecordReader& in) {
    IngestTask::CopySetting setting;
    setting.verifyMode = in.U32();
    setting.addToProject = in.Bool();
    for (std::uint32_t units = in.U32(); units > 0; --units) {
        IngestTask::CopyUnitRef unit(new IngestTask::CopyUnit);
        for (std::uint32_t entries = in.U32(); entries > 0; --entries) {
            CopyEntry entry;
            entry.source = in.Wide();
            entry.target = in.Wide();
            entry.action = in.I32();
            entry.isFolder = in.Bool();
            unit->entries.push_back(std::move(entry));
        }
        unit->importItems = ReadItems(in);
        unit->renames = ReadNames(in);
        unit->clipGuids = ReadGuids(in);
        setting.units.push_back(std::move(unit));
    }
    return setting;
}

void WriteTranscode(ByteRecordWriter& out, const TranscodeTaskRecord& record) {
    out.Wide(record.presetName);
    out.Wide(record.exporterName);
    out.U32(static_cast<std::uint32_t>(record.clips.size()));
    for (const IngestTask::TranscodeClipEntry& clip : record.clips) {
        out.Wide(clip.path);
        out.Bool(clip.useOutputName);
        out.Wide(clip.name);
        out.I64(clip.inPoint);
        out.I64(clip.outPoint);
        out.I64(clip.frameRate);
    }
    out.Wide(record.sourceRoot);
    out.Wide(record.outputPath);
    out.Bool(record.addToProject);
    out.Wide(record.concatenateName);
}

TranscodeTaskRecord ReadTranscode(ByteRecordReader& in) {
    TranscodeTaskRecord record;
    record.presetName = in.Wide();
    record.exporterName = in.Wide();
    for (std::uint32_t clips = in.U32(); clips > 0; --clips) {
        IngestTask::TranscodeClipEntry clip;
        clip.path = in.Wide();
        clip.useOutputName = in.Bool();
        clip.name = in.Wide();
        clip.inPoint = in.I64();
        clip.outPoint = in.I64();
        clip.frameRate = in.I64();
        record.clips.push_back(std::move(clip));
    }
    record.sourceRoot = in.Wide();
    record.outputPath = in.Wide();
    record.addToProject = in.Bool();
    record.concatenateName = in.Wide();
    return record;
}

} // namespace

std::string EncodeTaskRecord(const TaskRecord& record) {
    ByteRecordWriter out;
    out.Text(kSchemaName);
    out.U32(kSchemaVersion);
    out.U8(static_cast<std::uint8_t>(record.kind));
    switch (record.kind) {
    case TaskKind::Copy:
        WriteCopy(out, record.Copy());
        break;
    case TaskKind::Transcode:
    case TaskKind::Concatenate:
        WriteTranscode(out, record.Transcode());
        break;
    case TaskKind::Import:
        WriteItems(out, record.Import().importItems);
        break;
    case TaskKind::UpdateMetadata: {
        const IngestTask::UpdateMetadataSetting& setting = record.UpdateMetadata();
        WriteNames(out, setting.renames);
        WriteGuids(out, setting.clipGuids);
        out.U64(setting.reserved);
        WriteItems(out, setting.importItems);
        out.Bool(setting.addToProject);
        break;
    }
    }
    WriteCustomData(out, record.data);
    return out.Bytes();
}

TaskRecord DecodeTaskRecord(std::string_view bytes) {
    ByteRecordReader in(bytes, "a task of the journal");
    if (in.Text() != kSchemaName)
        in.Fail("it is not a task record");
    const std::uint32_t version = in.U32();
    if (version > kSchemaVersion)
        in.Fail("it was written by a newer version (" + std::to_string(version) + ")");

    TaskRecord record;
    const std::uint8_t kind = in.U8();
    if (kind > static_cast<std::uint8_t>(TaskKind::UpdateMetadata))
        in.Fail("unknown kind of task");
    record.kind = static_cast<TaskKind>(kind);
    switch (record.kind) {
    case TaskKind::Copy:
        record.setting = ReadCopy(in);
        break;
    case TaskKind::Transcode:
    case TaskKind::Concatenate:
        record.setting = ReadTranscode(in);
        break;
    case TaskKind::Import:
        record.setting = IngestTask::ImportSetting{ReadItems(in)};
        break;
    case TaskKind::UpdateMetadata: {
        IngestTask::UpdateMetadataSetting setting;
        setting.renames = ReadNames(in);
        setting.clipGuids = ReadGuids(in);
        setting.reserved = in.U64();
        setting.importItems = ReadItems(in);
        setting.addToProject = in.Bool();
        record.setting = std::move(setting);
        break;
    }
    }
    record.data = ReadCustomData(in);
    if (!in.AtEnd())
        in.Fail("unexpected bytes after its end");
    return record;
}

} // namespace QL::Engine
