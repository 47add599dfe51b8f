#pragma once
// A folder checked against its history: every file it lists hashed again from the disk.
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "Mhl/History.h"

namespace Mhl {

struct FolderCheck {
    std::vector<FileHash> matched;        // hashed again: the same (action "verified")
    std::vector<FileHash> altered;        // hashed again: different (action "failed")
    std::vector<std::string> missing;     // listed, not on the disk
    std::vector<std::string> added;       // on the disk, listed nowhere
    std::vector<std::string> unreadable;  // "path: reason", listed or not
    std::vector<std::string> uncheckable; // listed without a digest this tool computes

    bool AllMatch() const {
        return altered.empty() && missing.empty() && added.empty() && unreadable.empty() &&
               uncheckable.empty();
    }
};

// Hashes every file the history lists, in the format it lists, and looks for files it does not
// list. progress is called after each file with the number done and the number listed.
FolderCheck CheckFolder(const std::string& root, const History& history,
                        const std::function<void(std::size_t done, std::size_t total)>& progress = {});

// Hashes the files a check found new, as a first record of them (action "original").
std::vector<FileHash> HashAdded(const std::string& root, const std::vector<std::string>& added,
                                const std::string& format, std::vector<std::string>& unreadable);

// A file's size and last-modified date as a generation lists them; false when it cannot be read.
bool DescribeFile(const std::string& path, FileHash& hash);

} // namespace Mhl
