#include "EncoderPresetFolder.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <memory>
#include <optional>
#include <set>

#include "Exporters.h"

namespace Av {
namespace {

struct DirCloser {
    void operator()(DIR* dir) const { ::closedir(dir); }
};

std::optional<EncoderPresetFolder::Signature> SignatureOf(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode))
        return std::nullopt;
    EncoderPresetFolder::Signature signature;
    signature.device = info.st_dev;
    signature.inode = info.st_ino;
    signature.size = info.st_size;
    signature.modifiedNs = static_cast<long long>(info.st_mtim.tv_sec) * 1000000000LL + info.st_mtim.tv_nsec;
    signature.changedNs = static_cast<long long>(info.st_ctim.tv_sec) * 1000000000LL + info.st_ctim.tv_nsec;
    return signature;
}

bool IsPresetFileName(const std::string& name) {
    const std::string suffix = "." + std::string(kEncoderPresetExtension);
    return name.front() != '.' && name.size() > suffix.size() && name.ends_with(suffix);
}

bool NameLess(const Fnd::WString& a, const Fnd::WString& b) {
    return Fnd::LessIgnoringASCIICase(a, b);
}

// Container and extension come from the exporter the file names; a file naming none this build
// knows is skipped.
Fnd::InterfaceRef<EncoderPresetObject> Load(const std::string& path, bool user, std::string& reason) {
    EncoderPresetReadResult read = ReadEncoderPresetFile(path);
    if (!read) {
        reason = std::move(read.error);
        return nullptr;
    }
    const ExporterDefinition* exporter = FindKnownExporter(read.document->exporter);
    if (!exporter) {
        reason = "names the exporter \"" + Fnd::ToUTF8(read.document->exporter) + "\", which this build does not know";
        return nullptr;
    }
    EncoderPresetInfo info;
    info.settings = read.document->settings;
    info.settings.container = exporter->muxer;
    info.settings.extension = exporter->extension;
    info.path = path;
    info.user = user;
    return EncoderPresetObject::Create(std::move(*read.document), std::move(info));
}

} // namespace

std::vector<Fnd::InterfaceRef<EncoderPresetObject>> EncoderPresetFolder::Rescan(
    std::vector<EncoderPresetWarning>& warnings) {
    std::unique_ptr<DIR, DirCloser> dir(::opendir(folder_.c_str()));
    if (!dir) {
        // A fresh home has no user folder yet; a missing shipped folder is a broken installation.
        if (!user_ && !folderReported_)
            warnings.push_back({folder_, std::string("the folder of shipped encoder presets cannot be read: ") +
                                             std::strerror(errno)});
        folderReported_ = true;
        entries_.clear();
        return {};
    }
    folderReported_ = false;
    std::set<std::string> seen;
    while (const dirent* item = ::readdir(dir.get())) {
        const std::string name = item->d_name;
        if (!IsPresetFileName(name))
            continue;
        const std::string path = folder_ + "/" + name;
        const auto signature = SignatureOf(path);
        if (!signature)
            continue;
        seen.insert(name);
        const auto known = entries_.find(name);
        if (known != entries_.end() && known->second.signature == *signature)
            continue;
        std::string reason;
        Entry entry{*signature, Load(path, user_, reason)};
        if (!entry.preset)
            warnings.push_back({path, std::move(reason)});
        entries_[name] = std::move(entry);
    }
    std::erase_if(entries_, [&](const auto& item) { return !seen.contains(item.first); });

    std::vector<Fnd::InterfaceRef<EncoderPresetObject>> presets;
    for (const auto& [name, entry] : entries_)
        if (entry.preset)
            presets.push_back(entry.preset);
    // The map is in file-name order, so a stable sort leaves ties there.
    if (user_)
        std::stable_sort(presets.begin(), presets.end(), [](const auto& a, const auto& b) {
            return NameLess(a->GetName(), b->GetName());
        });
    else
        std::stable_sort(presets.begin(), presets.end(), [](const auto& a, const auto& b) {
            return a->Document().order.value_or(INT_MAX) < b->Document().order.value_or(INT_MAX);
        });
    return presets;
}

} // namespace Av
