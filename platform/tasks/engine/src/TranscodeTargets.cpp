#include "TranscodeTargets.h"

#include <sys/stat.h>

#include "Av/EncoderList.h"
#include "Fnd/PathUtils.h"

namespace QL::Engine {
namespace {

bool IsFolder(const Fnd::WString& path) {
    struct stat info {};
    return ::stat(Fnd::ToUTF8(path).c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

Fnd::WString Joined(const Fnd::WString& folder, const Fnd::WString& name, const Fnd::WString& extension) {
    Fnd::WString path = folder;
    if (!path.empty() && path.back() != u'/')
        path += u'/';
    path += name;
    if (!extension.empty())
        path += u'.' + extension;
    return path;
}

} // namespace

std::vector<TranscodeTarget> TranscodeTargets(TaskKind kind, const TranscodeTaskRecord& record) {
    std::vector<TranscodeTarget> targets;
    if (record.clips.empty())
        return targets;
    const auto settings = Av::FindEncoderSettings(record.exporterName, record.presetName);
    const Fnd::WString extension = settings ? Fnd::FromUTF8(settings->extension) : Fnd::WString();
    if (kind == TaskKind::Concatenate) {
        const Fnd::WString& first = record.clips.front().path;
        const Fnd::WString name = record.concatenateName.empty() ? Fnd::PathUtils::StemOf(first) : record.concatenateName;
        targets.push_back(TranscodeTarget{0, first, Joined(record.outputPath, name, extension)});
        return targets;
    }
    std::uint32_t index = 0;
    for (const IngestTask::TranscodeClipEntry& clip : record.clips) {
        const std::uint32_t at = index++;
        if (IsFolder(clip.path))
            continue;
        // A plain file's clip is named with its extension, which the output's own replaces.
        Fnd::WString name = clip.name.empty() ? Fnd::PathUtils::StemOf(clip.path) : clip.name;
        if (name == Fnd::PathUtils::FileNameOf(clip.path))
            name = Fnd::PathUtils::StemOf(clip.path);
        targets.push_back(TranscodeTarget{at, clip.path, Joined(record.outputPath, name, extension)});
    }
    return targets;
}

} // namespace QL::Engine
