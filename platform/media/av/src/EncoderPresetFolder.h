#pragma once
#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

#include "Av/EncoderList.h"
#include "EncoderPresetObject.h"

namespace Av {

// The presets of one folder, read again only when a file changes: an unchanged file keeps its
// preset object, and a broken one is reported once until it changes. Not thread-safe.
class EncoderPresetFolder {
public:
    EncoderPresetFolder(std::string folder, bool user) : folder_(std::move(folder)), user_(user) {}

    // The presets now in the folder in the order a menu lists them: shipped ones by their order,
    // then file name; the user's by name, case aside. Skipped files are added to warnings.
    std::vector<Fnd::InterfaceRef<EncoderPresetObject>> Rescan(std::vector<EncoderPresetWarning>& warnings);

    struct Signature {
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = 0;
        long long modifiedNs = 0;
        long long changedNs = 0;
        bool operator==(const Signature&) const = default;
    };

private:
    struct Entry {
        Signature signature;
        Fnd::InterfaceRef<EncoderPresetObject> preset; // null: the file was skipped
    };

    const std::string folder_;
    const bool user_;
    std::map<std::string, Entry> entries_; // by file name
    bool folderReported_ = false;
};

} // namespace Av
