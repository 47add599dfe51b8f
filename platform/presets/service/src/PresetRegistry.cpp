#include "PresetRegistry.h"

#include <dirent.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <optional>
#include <set>
#include <system_error>
#include <utility>

#include "Fnd/AtomicFile.h"
#include "Fnd/IgdHome.h"
#include "Fnd/PathUtils.h"
#include "QL/PresetNames.h"
#include "QL/PresetFileReader.h"
#include "QL/PresetFileTypes.h"
#include "QL/PresetFileWriter.h"
#include "QL/PresetLoadWarnings.h"

namespace QL {
namespace {

std::optional<PresetRegistry::FileSignature> SignatureOf(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode))
        return std::nullopt;
    PresetRegistry::FileSignature signature;
    signature.device = info.st_dev;
    signature.inode = info.st_ino;
    signature.size = static_cast<unsigned long long>(info.st_size);
    signature.modifiedNs = static_cast<long long>(info.st_mtim.tv_sec) * 1000000000LL + info.st_mtim.tv_nsec;
    signature.changedNs = static_cast<long long>(info.st_ctim.tv_sec) * 1000000000LL + info.st_ctim.tv_nsec;
    return signature;
}

bool HasExtension(const std::string& fileName, const std::string& extension) {
    if (fileName.size() <= extension.size())
        return false;
    return Fnd::EqualsIgnoringASCIICase(Fnd::FromUTF8(fileName.substr(fileName.size() - extension.size())),
                                        Fnd::FromUTF8(extension));
}

std::string ExtensionFor(_QLPresetCategory category) {
    return Fnd::ToUTF8(category == kQLPresetCategoryMetadata ? GetMetadataPresetFileExtension()
                                                             : GetRenamePresetFileExtension());
}

const char* CategoryWord(_QLPresetCategory category) {
    return category == kQLPresetCategoryMetadata ? "metadata" : "rename";
}

struct DirCloser {
    void operator()(DIR* dir) const { ::closedir(dir); }
};
struct MallocFree {
    void operator()(char* text) const { ::free(text); }
};

std::string RealPath(const std::string& path) {
    std::unique_ptr<char, MallocFree> resolved(::realpath(path.c_str(), nullptr));
    return resolved ? std::string(resolved.get()) : path;
}

void Warn(const std::string& path, std::string reason) {
    ReportPresetLoadWarning({path, std::move(reason)});
}

} // namespace

PresetRegistry::PresetRegistry(_QLPresetCategory category, std::string userFolder, std::string systemFolder)
    : category_(category), userFolder_(std::move(userFolder)), systemFolder_(std::move(systemFolder)) {}

PresetRegistry::PendingWarnings::~PendingWarnings() {
    for (const auto& warning : warnings_)
        ReportPresetLoadWarning(warning);
}

void PresetRegistry::PendingWarnings::Add(const std::string& path, std::string reason) {
    warnings_.push_back({path, std::move(reason)});
}

PresetList PresetRegistry::UserPresets() {
    PendingWarnings warnings;
    std::lock_guard lock(mutex_);
    Rescan(user_, userFolder_, true, warnings);
    return Sorted(user_);
}

PresetList PresetRegistry::SystemPresets() {
    PendingWarnings warnings;
    std::lock_guard lock(mutex_);
    Rescan(system_, systemFolder_, false, warnings);
    return Sorted(system_);
}

void PresetRegistry::Rescan(Listing& listing, const std::string& folder, bool userFolder,
                            PendingWarnings& warnings) {
    std::unique_ptr<DIR, DirCloser> dir(::opendir(folder.c_str()));
    if (!dir) {
        // A fresh home has no user folder yet; a missing system folder is a broken installation.
        if (!userFolder && !listing.folderReported) {
            warnings.Add(folder,
                         std::string("the folder of system presets cannot be read: ") + std::strerror(errno));
            listing.folderReported = true;
        }
        listing.presets.clear();
        listing.unreadable.clear();
        return;
    }
    listing.folderReported = false;
    const std::string extension = ExtensionFor(category_);
    std::set<std::string> seen;
    while (const dirent* item = ::readdir(dir.get())) {
        const std::string fileName = item->d_name;
        if (fileName.front() == '.' || !HasExtension(fileName, extension))
            continue;
        const std::string path = folder + "/" + fileName;
        const auto signature = SignatureOf(path);
        if (!signature)
            continue;
        seen.insert(path);
        if (auto known = listing.presets.find(path);
            known != listing.presets.end() && known->second.signature == *signature)
            continue;
        if (auto broken = listing.unreadable.find(path);
            broken != listing.unreadable.end() && broken->second == *signature)
            continue;

        PresetReadResult read = ReadPresetFile(path);
        if (read && read.document->category != category_)
            read = {std::nullopt, std::string("is a ") + CategoryWord(read.document->category) +
                                      " preset in the folder of " + CategoryWord(category_) + " presets"};
        if (!read) {
            listing.presets.erase(path);
            listing.unreadable[path] = *signature;
            warnings.Add(path, read.error);
            continue;
        }
        listing.unreadable.erase(path);
        auto preset =
            PresetObject::Create(category_, read.document->name, MakePresetFields(read.document->fields));
        preset->SetPresetID(PresetObject::IdentityForPath(Fnd::FromUTF8(path)));
        preset->SetPath(Fnd::FromUTF8(path));
        preset->SetUserPreset(userFolder);
        listing.presets[path] = Entry{*signature, preset, std::move(*read.document)};
    }
    std::erase_if(listing.presets, [&](const auto& item) { return !seen.count(item.first); });
    std::erase_if(listing.unreadable, [&](const auto& item) { return !seen.count(item.first); });
}

PresetList PresetRegistry::Sorted(const Listing& listing) const {
    std::vector<const Entry*> entries;
    entries.reserve(listing.presets.size());
    for (const auto& item : listing.presets)
        entries.push_back(&item.second);
    // The map is ordered by path, so a stable sort leaves equal names in path order.
    std::stable_sort(entries.begin(), entries.end(), [](const Entry* a, const Entry* b) {
        return PresetNameLess(a->preset->GetName(true), b->preset->GetName(true));
    });
    PresetList presets;
    presets.reserve(entries.size());
    for (const Entry* entry : entries)
        presets.emplace_back(entry->preset.get());
    return presets;
}

std::string PresetRegistry::UserPathFor(const Fnd::WString& name) const {
    return userFolder_ + "/" + Fnd::ToUTF8(PresetFileName(name, category_));
}

std::string PresetRegistry::FindNameHolder(const Fnd::WString& name, const std::string& except) const {
    const Fnd::WString fileName = PresetFileName(name, category_);
    const auto holds = [&](const std::string& path) {
        return path != except &&
               Fnd::EqualsIgnoringASCIICase(Fnd::FromUTF8(Fnd::PathUtils::FileNameOf(path)), fileName);
    };
    for (const auto& [path, entry] : user_.presets)
        if (holds(path) || (path != except && Fnd::EqualsIgnoringASCIICase(entry.document.name, name)))
            return path;
    for (const auto& item : user_.unreadable)
        if (holds(item.first))
            return item.first;
    return {};
}

QLPresetStatus PresetRegistry::Save(PresetObject& preset, const Fnd::WString& name, bool overwrite) {
    if (preset.GetCategory() != category_)
        return kPresetWrongCategory;
    if (!preset.IsUserPreset())
        return kPresetReadOnly;
    if (!IsUsablePresetName(name, category_))
        return kPresetInvalidName;
    const std::string ownPath = Fnd::ToUTF8(preset.GetPath());
    if (!ownPath.empty() && Fnd::PathUtils::FolderOf(ownPath) != userFolder_)
        return kPresetReadOnly;
    PresetDocument document = MakePresetDocument(category_, name, preset.GetFields());
    for (const auto& field : document.fields)
        if (!FieldTypeBelongsTo(field.type, category_))
            return kPresetInvalidContent;
    if (!CanWritePresetDocument(document))
        return kPresetInvalidContent;

    PendingWarnings warnings;
    std::lock_guard lock(mutex_);
    Rescan(user_, userFolder_, true, warnings);
    // Without overwrite even the preset's own file counts as taken: saving as new never replaces.
    if (!FindNameHolder(name, overwrite ? ownPath : std::string()).empty())
        return kPresetNameExists;

    const std::string target = UserPathFor(name);
    try {
        Fnd::EnsureDirectory(userFolder_);
        const std::string bytes = SerializePresetDocument(document);
        if (target == ownPath)
            Fnd::WriteFileAtomically(target, bytes, true);
        else if (!Fnd::WriteFileAtomically(target, bytes, false))
            return kPresetNameExists;
    } catch (const std::system_error&) {
        return kPresetWriteFailed;
    }

    if (!ownPath.empty() && ownPath != target) {
        auto old = user_.presets.find(ownPath);
        // A renamed preset moves: its old file goes once the new one is safely written. Saved as
        // new, the old file stays and will be read into an object of its own.
        if (overwrite && ::unlink(ownPath.c_str()) != 0 && errno != ENOENT)
            warnings.Add(ownPath, std::string("was renamed but its old file could not be removed: ") +
                                      std::strerror(errno));
        if (old != user_.presets.end() && old->second.preset.get() == &preset)
            user_.presets.erase(old);
    }
    preset.SetName(name);
    preset.SetPath(Fnd::FromUTF8(target));
    user_.presets[target] = Entry{SignatureOf(target).value_or(FileSignature{}),
                                  Fnd::InterfaceRef<PresetObject>(&preset), std::move(document)};
    return kPresetOK;
}

Fnd::InterfaceRef<IQLPreset> PresetRegistry::Install(const std::string& path) {
    PresetReadResult read = ReadPresetFile(path);
    if (!read) {
        Warn(path, read.error);
        return nullptr;
    }
    PresetDocument document = std::move(*read.document);
    if (document.category != category_) {
        Warn(path, std::string("is a ") + CategoryWord(document.category) + " preset, not a " +
                       CategoryWord(category_) + " preset");
        return nullptr;
    }
    if (const std::string problem = PresetNameProblem(document.name, category_); !problem.empty()) {
        Warn(path, "has the preset name \"" + Fnd::ToUTF8(document.name) +
                       "\", which cannot name a file: " + problem);
        return nullptr;
    }

    PendingWarnings warnings;
    std::lock_guard lock(mutex_);
    Rescan(user_, userFolder_, true, warnings);
    const std::string source = RealPath(path);
    for (const auto& [existing, entry] : user_.presets)
        if (RealPath(existing) == source)
            return Fnd::InterfaceRef<IQLPreset>(entry.preset.get());

    // The same preset installed twice is one preset; a different one of the same name is kept
    // beside it under a numbered name, so that installing never loses either.
    const Fnd::WString baseName = document.name;
    for (unsigned number = 2;; ++number) {
        const std::string holder = FindNameHolder(document.name, {});
        if (holder.empty())
            break;
        if (auto entry = user_.presets.find(holder);
            entry != user_.presets.end() && entry->second.document == document)
            return Fnd::InterfaceRef<IQLPreset>(entry->second.preset.get());
        document.name = NumberedPresetName(baseName, number);
        if (!IsUsablePresetName(document.name, category_)) {
            warnings.Add(path,
                         "cannot be installed: no free name is left for \"" + Fnd::ToUTF8(baseName) + "\"");
            return nullptr;
        }
    }

    const std::string target = UserPathFor(document.name);
    try {
        Fnd::EnsureDirectory(userFolder_);
        if (!Fnd::WriteFileAtomically(target, SerializePresetDocument(document), false)) {
            warnings.Add(path, "cannot be installed: " + target + " appeared meanwhile");
            return nullptr;
        }
    } catch (const std::system_error& e) {
        warnings.Add(path, std::string("cannot be installed: ") + e.what());
        return nullptr;
    }
    auto preset = PresetObject::Create(category_, document.name, MakePresetFields(document.fields));
    preset->SetPath(Fnd::FromUTF8(target));
    user_.presets[target] = Entry{SignatureOf(target).value_or(FileSignature{}), preset, std::move(document)};
    return Fnd::InterfaceRef<IQLPreset>(preset.get());
}

QLPresetStatus PresetRegistry::Delete(PresetObject& preset) {
    if (preset.GetCategory() != category_)
        return kPresetWrongCategory;
    if (!preset.IsUserPreset())
        return kPresetReadOnly;
    const std::string path = Fnd::ToUTF8(preset.GetPath());
    if (path.empty())
        return kPresetNotSaved;
    if (Fnd::PathUtils::FolderOf(path) != userFolder_)
        return kPresetReadOnly;
    std::lock_guard lock(mutex_);
    // A file already gone is what the user asked for.
    if (::unlink(path.c_str()) != 0 && errno != ENOENT)
        return kPresetWriteFailed;
    user_.presets.erase(path);
    user_.unreadable.erase(path);
    return kPresetOK;
}

} // namespace QL
