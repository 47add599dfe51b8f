#pragma once
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "QL/IQLPresetManager.h"
#include "QL/PresetDocument.h"
#include "QL/PresetLoadWarnings.h"
#include "QL/PresetObject.h"

namespace QL {

// The presets of one category on disk, shared by every manager of that category. It keeps one
// object per file and reuses it while the file is unchanged, so that values typed into a preset's
// fields survive any number of listings and managers; a file changed behind its back is read
// again into a new object.
class PresetRegistry {
public:
    PresetRegistry(_QLPresetCategory category, std::string userFolder, std::string systemFolder);

    _QLPresetCategory Category() const { return category_; }
    const std::string& UserFolder() const { return userFolder_; }

    PresetList UserPresets();
    PresetList SystemPresets();
    QLPresetStatus Save(PresetObject& preset, const Fnd::WString& name, bool overwrite);
    Fnd::InterfaceRef<IQLPreset> Install(const std::string& path);
    QLPresetStatus Delete(PresetObject& preset);

    // What identifies one version of a file: a rewrite, even of equal size, changes it.
    struct FileSignature {
        unsigned long long device = 0, inode = 0, size = 0;
        long long modifiedNs = 0, changedNs = 0;
        bool operator==(const FileSignature&) const = default;
    };

private:
    struct Entry {
        FileSignature signature;
        Fnd::InterfaceRef<PresetObject> preset;
        PresetDocument document; // as the file holds it, for comparing installs
    };
    struct Listing {
        std::map<std::string, Entry> presets;            // by path
        std::map<std::string, FileSignature> unreadable; // reported once per version of the file
        bool folderReported = false;
    };

    // Warnings met under the lock are reported once it is released (the lock is declared after
    // this, so it is released first), so that a handler may call the service again.
    class PendingWarnings {
    public:
        PendingWarnings() = default;
        PendingWarnings(const PendingWarnings&) = delete;
        PendingWarnings& operator=(const PendingWarnings&) = delete;
        ~PendingWarnings();
        void Add(const std::string& path, std::string reason);

    private:
        std::vector<PresetLoadWarning> warnings_;
    };

    void Rescan(Listing& listing, const std::string& folder, bool userFolder, PendingWarnings& warnings);
    PresetList Sorted(const Listing& listing) const;
    // The user preset file that already holds `name`, by its file name or by the name inside it,
    // ignoring the case of A to Z; `except` is left out. Empty when there is none.
    std::string FindNameHolder(const Fnd::WString& name, const std::string& except) const;
    std::string UserPathFor(const Fnd::WString& name) const;

    const _QLPresetCategory category_;
    const std::string userFolder_;
    const std::string systemFolder_;
    std::mutex mutex_;
    Listing user_;
    Listing system_;
};

} // namespace QL
