#pragma once
// What a directory holds for the browser, read in one go off the UI thread.
#include <vector>

#include "Browse/ProviderWrapper.h"
#include "Fnd/WString.h"
#include "fluxmediabrowser/MediaEntry.h"

namespace fluxmediabrowser {

struct DirectoryListing {
    // The directory the entries are named relative to: a card's root when the directory asked is
    // inside a card, else the directory itself.
    Fnd::WString directory;
    const Browse::ProviderWrapper* provider = nullptr;
    // Folders first, then by name without regard to case.
    std::vector<MediaEntry> entries;
};

// Safe from any thread: the providers keep their scans per thread and the registries lock.
DirectoryListing ListDirectory(const Fnd::WString& directory);

} // namespace fluxmediabrowser
