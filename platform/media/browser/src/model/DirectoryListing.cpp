#include "DirectoryListing.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "Browse/CardScanScope.h"
#include "Browse/ProviderRegistry.h"
#include "Plug/ImportableFileTypeUtils.h"

namespace fluxmediabrowser {
namespace {

namespace fs = std::filesystem;

struct FileStat {
    std::uint64_t size = 0;
    std::int64_t modified = 0;
};

FileStat StatOf(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0)
        return {};
    return {static_cast<std::uint64_t>(info.st_size), static_cast<std::int64_t>(info.st_mtim.tv_sec)};
}

Fnd::WString WithoutTrailingSlash(Fnd::WString path) {
    while (path.size() > 1 && path.back() == u'/')
        path.pop_back();
    return path;
}

Fnd::WString Join(const Fnd::WString& directory, const Fnd::WString& name) {
    return directory == u"/" ? directory + name : directory + u'/' + name;
}

struct CardAt {
    const Browse::CardProvider* provider = nullptr;
    Fnd::WString root;
};

// A folder inside a card shows the whole card: its clips are named relative to the card's root,
// and a clip is the unit a person picks, not the files under one of its folders.
CardAt FindCard(const Fnd::WString& directory) {
    const auto& providers = Browse::ProviderRegistry::CardProviders();
    for (const Browse::CardProvider* provider : providers) {
        const Fnd::WString root = WithoutTrailingSlash(provider->CardRootForFile(Join(directory, u"x")));
        if (!root.empty() && root != directory && !Browse::CardScanScope::Clips(*provider, root)->empty())
            return {provider, root};
    }
    for (const Browse::CardProvider* provider : providers)
        if (!Browse::CardScanScope::Clips(*provider, directory)->empty())
            return {provider, directory};
    return {};
}

std::vector<MediaEntry> CardEntries(const CardAt& card) {
    const std::shared_ptr<const Browse::Content> content =
        card.provider->GetSharedContent(card.root, {Browse::kNameField, Browse::kExtraPathField});
    std::vector<MediaEntry> entries;
    entries.reserve(content->size());
    for (const auto& [entryName, fields] : *content) {
        MediaEntry entry;
        entry.entryName = entryName;
        entry.path = Fnd::FromUTF8(fs::path(Fnd::ToUTF8(Join(card.root, entryName))).lexically_normal().string());
        const auto name = fields.find(Browse::kNameField);
        const Fnd::WString* text = name == fields.end() ? nullptr : name->second.AsString();
        entry.displayName = text && !text->empty() ? *text : Fnd::FromUTF8(fs::path(Fnd::ToUTF8(entryName)).stem().string());
        if (const auto extra = fields.find(Browse::kExtraPathField); extra != fields.end()) {
            if (const auto* files = extra->second.AsArray())
                for (const Browse::any_regular_t& file : *files)
                    if (const Fnd::WString* path = file.AsString())
                        entry.sizeBytes += StatOf(Fnd::ToUTF8(*path)).size;
        }
        entry.modifiedTime = StatOf(Fnd::ToUTF8(entry.path)).modified;
        entries.push_back(std::move(entry));
    }
    return entries;
}

std::vector<MediaEntry> PlainEntries(const Fnd::WString& directory) {
    const std::set<Fnd::WString> extensions =
        Plug::ImportableFileTypeUtils::GetImportableFileExtensions(Plug::kImportableFileTypeAll);
    const bool anyFile = extensions.count(u"*") != 0;
    std::vector<MediaEntry> entries;
    std::error_code error;
    for (fs::directory_iterator it(Fnd::ToUTF8(directory), error), end; !error && it != end; it.increment(error)) {
        const std::string name = it->path().filename().string();
        if (name.empty() || name.front() == '.')
            continue;
        std::error_code ignored;
        const bool folder = it->is_directory(ignored);
        const Fnd::WString wideName = Fnd::FromUTF8(name);
        if (!folder && !anyFile) {
            const std::size_t dot = wideName.find_last_of(u'.');
            if (dot == Fnd::WString::npos || !extensions.count(Fnd::ToLowerASCII(Fnd::WStringView(wideName).substr(dot + 1))))
                continue;
        }
        MediaEntry entry;
        entry.folder = folder;
        entry.entryName = wideName;
        entry.displayName = wideName;
        entry.path = Join(directory, wideName);
        const FileStat stat = StatOf(it->path().string());
        entry.sizeBytes = folder ? 0 : stat.size;
        entry.modifiedTime = stat.modified;
        entries.push_back(std::move(entry));
    }
    return entries;
}

} // namespace

DirectoryListing ListDirectory(const Fnd::WString& asked) {
    const Fnd::WString directory = WithoutTrailingSlash(asked);
    // One scan of each card serves the search for the card and its content.
    const Browse::CardScanScope scans;
    DirectoryListing listing;
    if (const CardAt card = FindCard(directory); card.provider) {
        listing.directory = card.root;
        listing.provider = card.provider;
        listing.entries = CardEntries(card);
    } else {
        listing.directory = directory;
        listing.provider = &Browse::ProviderRegistry::PlainDirectory();
        listing.entries = PlainEntries(directory);
    }
    std::sort(listing.entries.begin(), listing.entries.end(), [](const MediaEntry& a, const MediaEntry& b) {
        if (a.folder != b.folder)
            return a.folder;
        if (Fnd::LessIgnoringASCIICase(a.displayName, b.displayName))
            return true;
        if (Fnd::LessIgnoringASCIICase(b.displayName, a.displayName))
            return false;
        return a.entryName < b.entryName;
    });
    return listing;
}

} // namespace fluxmediabrowser
