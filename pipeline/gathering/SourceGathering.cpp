#include "IGD/IngestSequence.h"

#include <algorithm>
#include <filesystem>
#include <unordered_map>
#include <unordered_set>

#include "Browse/CardScanScope.h"
#include "Browse/FileListForCopy.h"
#include "Browse/ProviderRegistry.h"
#include "Fnd/PathUtils.h"
#include "Plug/ImportableFileTypeUtils.h"
#include "pipeline/gathering/AddBrowserItems.h"
#include "pipeline/gathering/GatherPathItems.h"

namespace IGD {
namespace {

namespace fs = std::filesystem;

fs::path NativePath(const Fnd::WString& path) {
    return fs::path(Fnd::ToUTF8(path));
}

Fnd::WString WidePath(const fs::path& path) {
    return Fnd::FromUTF8(path.string());
}

// Every file of the clips, in lexically normal form.
std::unordered_set<std::string> ClaimedFiles(const std::vector<std::vector<Browse::CardClip>>& cards) {
    std::unordered_set<std::string> claimed;
    for (const std::vector<Browse::CardClip>& clips : cards)
        for (const Browse::CardClip& clip : clips)
            for (const Fnd::WString& file : clip.files)
                claimed.insert(NativePath(file).lexically_normal().string());
    return claimed;
}

// Whether a clip claims a file below the folder: a card holding nothing but the end of a recording
// that started on a card beside it is still a card, not a plain folder to copy whole.
bool HoldsClaimedFile(const Fnd::WString& folder, const std::unordered_set<std::string>& claimed) {
    const std::string prefix = (NativePath(folder).lexically_normal() / "").string();
    return std::any_of(claimed.begin(), claimed.end(),
                       [&prefix](const std::string& file) { return file.starts_with(prefix); });
}

// Media on a card that no clip claims: a clip the camera never finished indexing, or files put
// there by hand. Leaving them behind would lose them when the card is formatted. Sidecars come
// with their media; hidden files and the cards' own index files stay. Claims come from every card
// of the ingest, since a recording that continues from another card claims files on this one.
std::vector<fs::path> LooseMediaFiles(const fs::path& cardRoot,
                                      const std::unordered_set<std::string>& claimed) {
    std::vector<fs::path> loose;
    std::error_code error;
    for (fs::recursive_directory_iterator it(cardRoot, fs::directory_options::skip_permission_denied, error),
         end;
         it != end; it.increment(error)) {
        const fs::path& path = it->path();
        if (path.filename().string().starts_with(".")) {
            if (it->is_directory(error))
                it.disable_recursion_pending();
            continue;
        }
        if (!it->is_regular_file(error) || claimed.count(path.lexically_normal().string()) != 0)
            continue;
        if (Plug::ImportableFileTypeUtils::IsImportableFile(WidePath(path)))
            loose.push_back(path);
    }
    // Directory order is the filesystem's; the user expects the order a listing shows.
    std::sort(loose.begin(), loose.end());
    return loose;
}

// Media files below the folder that no clip claims, through the plain directory provider,
// relative to holder.
void GatherLooseMedia(IIngestDialogData& session, const fs::path& folder, const fs::path& holder,
                      const std::unordered_set<std::string>& claimed) {
    for (const fs::path& file : LooseMediaFiles(folder, claimed))
        AddBrowserItems(
            session, CheckedItems{{WidePath(file), WidePath(file.lexically_relative(holder))}},
            ClipSettings{}, &Browse::ProviderRegistry::PlainDirectory(), holder.string());
}

// Each clip through its card provider, as the browser shows it.
void GatherClips(IIngestDialogData& session, const std::vector<Browse::CardClip>& clips) {
    for (const Browse::CardClip& clip : clips)
        GatherPathItems(session, clip.mediaPath);
}

// Gathers a card the way the browser shows it: each clip through its card provider, each loose
// media file through the plain directory provider, all relative to the folder that holds the card.
void GatherCard(IIngestDialogData& session, const Fnd::WString& cardRoot,
                const std::vector<Browse::CardClip>& clips, const std::unordered_set<std::string>& claimed) {
    GatherClips(session, clips);
    const fs::path root = NativePath(cardRoot);
    GatherLooseMedia(session, root, root.parent_path(), claimed);
}

// The cards directly inside a folder that is no card itself, such as the folder a system mounts
// its card readers in, in name order.
std::vector<Fnd::WString> CardsInside(const Fnd::WString& folder) {
    std::vector<fs::path> children;
    std::error_code error;
    for (fs::directory_iterator it(NativePath(folder), fs::directory_options::skip_permission_denied, error),
         end;
         it != end; it.increment(error))
        if (it->is_directory(error) && !it->path().filename().string().starts_with("."))
            children.push_back(it->path());
    std::sort(children.begin(), children.end());
    std::vector<Fnd::WString> cards;
    for (const fs::path& child : children)
        if (!Browse::ProviderRegistry::FindCardClips(WidePath(child)).empty())
            cards.push_back(WidePath(child));
    return cards;
}

// A folder of cards is opened like a card reader: its cards together, so that recordings continue
// from one to the next, and the media beside them; all land side by side in the destination.
void GatherFolderOfCards(IIngestDialogData& session, const Fnd::WString& folder,
                         const std::vector<Fnd::WString>& cards) {
    const Browse::CardScanScope together(cards);
    std::vector<std::vector<Browse::CardClip>> clipsOfCard;
    for (const Fnd::WString& card : cards)
        clipsOfCard.push_back(Browse::ProviderRegistry::FindCardClips(card));
    for (const std::vector<Browse::CardClip>& clips : clipsOfCard)
        GatherClips(session, clips);
    GatherLooseMedia(session, NativePath(folder), NativePath(folder), ClaimedFiles(clipsOfCard));
}

// Sessions by source root, in the order the roots first appear, with each item path once.
class SessionsByRoot {
public:
    void Take(const IIngestDialogData& gathered) {
        // A card holding only the end of a recording gathers nothing of its own.
        if (gathered.GetSelectedItems().empty())
            return;
        const Fnd::WString root = gathered.GetSourceRoot();
        auto [found, added] = index_.emplace(root, sessions_.size());
        if (added) {
            sessions_.push_back(IngestDialogDataRef::Query(CreateIngestDialogData()));
            sessions_.back()->SetSourceRoot(root);
        }
        IIngestDialogData& session = *sessions_[found->second];
        for (const SelectedItemRef& item : gathered.GetSelectedItems())
            if (taken_.insert(root + u'\n' + item->GetItemPath()).second)
                session.AddSelectedItem(item);
    }
    std::vector<IngestDialogDataRef> Sessions() && { return std::move(sessions_); }

private:
    std::vector<IngestDialogDataRef> sessions_;
    std::unordered_map<Fnd::WString, std::size_t> index_;
    std::unordered_set<Fnd::WString> taken_;
};

} // namespace

std::vector<Fnd::WString> DistinctIngestSources(const std::vector<Fnd::WString>& sources) {
    // The sidecars the library attaches to a file: "<name>.xmp" and "<stem>.xmp" beside it.
    std::unordered_set<Fnd::WString> sidecars;
    for (const Fnd::WString& source : sources) {
        if (Fnd::PathUtils::IsDirectory(source))
            continue;
        Fnd::WString directory;
        Fnd::WString stem;
        Fnd::WString extension;
        Fnd::PathUtils::SplitPath(source, nullptr, &directory, &stem, &extension);
        if (Fnd::EqualsIgnoringASCIICase(extension, u".xmp"))
            continue;
        sidecars.insert(source + u".xmp");
        sidecars.insert(directory + stem + u".xmp");
    }
    std::vector<Fnd::WString> distinct;
    std::unordered_set<Fnd::WString> seen;
    for (const Fnd::WString& source : sources)
        if (sidecars.count(source) == 0 && seen.insert(source).second)
            distinct.push_back(source);
    return distinct;
}

std::vector<IngestDialogDataRef> GatherIngestSources(const std::vector<Fnd::WString>& sources) {
    // The folders named are the cards open together: a recording that continues from one card on
    // another beside it is one clip. Several sources usually lie on one card: it is read once for
    // all of them.
    std::vector<Fnd::WString> folders;
    for (const Fnd::WString& source : sources)
        if (Fnd::PathUtils::IsDirectory(source))
            folders.push_back(source);
    const Browse::CardScanScope scans(folders);
    std::vector<std::vector<Browse::CardClip>> clipsOfSource;
    clipsOfSource.reserve(sources.size());
    for (const Fnd::WString& source : sources)
        clipsOfSource.push_back(Fnd::PathUtils::IsDirectory(source)
                                    ? Browse::ProviderRegistry::FindCardClips(source)
                                    : std::vector<Browse::CardClip>{});
    const std::unordered_set<std::string> claimed = ClaimedFiles(clipsOfSource);

    SessionsByRoot sessions;
    for (std::size_t i = 0; i < sources.size(); ++i) {
        const IngestDialogDataRef gathered =
            IngestDialogDataRef::Query(CreateIngestDialogData());
        if (!clipsOfSource[i].empty() || (!Browse::CardScanScope::CardsOpenBeside(sources[i]).empty() &&
                                          HoldsClaimedFile(sources[i], claimed)))
            GatherCard(*gathered, sources[i], clipsOfSource[i], claimed);
        else if (const std::vector<Fnd::WString> cards = Fnd::PathUtils::IsDirectory(sources[i])
                                                             ? CardsInside(sources[i])
                                                             : std::vector<Fnd::WString>{};
                 !cards.empty())
            GatherFolderOfCards(*gathered, sources[i], cards);
        else
            GatherPathItems(*gathered, sources[i]);
        sessions.Take(*gathered);
    }
    return std::move(sessions).Sessions();
}

} // namespace IGD
