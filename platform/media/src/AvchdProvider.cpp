#include <map>
#include <set>

#include "CardFamilies.h"
#include "CardFolder.h"
#include "MplPlaylist.h"

namespace Browse {
namespace {

using namespace card;

bool IsStream(const Entry& entry) {
    return !entry.folder &&
           (EqualsNoCase(Extension(entry.name), "MTS") || EqualsNoCase(Extension(entry.name), "M2TS"));
}

bool IsPlaylist(const Entry& entry) {
    return !entry.folder &&
           (EqualsNoCase(Extension(entry.name), "MPL") || EqualsNoCase(Extension(entry.name), "MPLS"));
}

class AvchdProvider : public CardProvider {
public:
    std::string GetIdentification() const override { return std::string(kIdentificationPrefix) + "AVCHD"; }
    std::vector<Fnd::WString> MediaExtensions() const override { return {u"mts", u"m2ts"}; }

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        std::optional<fs::path> bdmv = AncestorNamed(ToPath(filePath), "BDMV", 2);
        if (!bdmv || !EqualsNoCase(bdmv->parent_path().filename().string(), "AVCHD"))
            return {};
        fs::path root = bdmv->parent_path().parent_path();
        if (EqualsNoCase(root.filename().string(), "PRIVATE"))
            root = root.parent_path();
        return ToWide(root);
    }

    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        const fs::path root = ToPath(cardRoot);
        std::optional<fs::path> bdmv = Descend(root, {"PRIVATE", "AVCHD", "BDMV"});
        if (!bdmv)
            bdmv = Descend(root, {"AVCHD", "BDMV"});
        const std::optional<fs::path> streamFolder = bdmv ? ChildFolder(*bdmv, "STREAM") : std::nullopt;
        if (!streamFolder)
            return {};
        const NameIndex clipInfo(ChildFolder(*bdmv, "CLIPINF"));
        const NameIndex playlists(ChildFolder(*bdmv, "PLAYLIST"));
        // Streams by their 5-digit number.
        std::map<std::string, Entry> streams;
        for (const Entry& entry : List(*streamFolder))
            if (IsStream(entry))
                streams.emplace(Upper(Stem(entry.name)), entry);

        std::set<std::string> taken;
        std::vector<CardClip> clips;
        auto startClip = [&](const Entry& first) {
            CardClip clip;
            clip.family = GetIdentification();
            clip.name = Fnd::FromUTF8(Stem(first.name));
            clip.mediaPath = ToWide(first.path);
            clips.push_back(std::move(clip));
        };
        auto addStream = [&](CardClip& clip, const Entry& stream) {
            clip.files.push_back(ToWide(stream.path));
            const std::string number = Stem(stream.name);
            if (!clipInfo.AppendIfPresent(number + ".CPI", clip.files))
                clipInfo.AppendIfPresent(number + ".clpi", clip.files);
        };

        // Each recording of a playlist: its first item and the items that continue it.
        for (const Entry& playlist : playlists.Entries()) {
            if (!IsPlaylist(playlist))
                continue;
            bool open = false;
            for (const MplPlayItem& item : ReadMplPlayItems(playlist.path)) {
                auto stream = streams.find(Upper(item.stream));
                const bool known = stream != streams.end() && !taken.count(stream->first);
                if (!item.continuesPrevious || !open) {
                    if (open)
                        clips.back().files.push_back(ToWide(playlist.path));
                    open = known;
                    if (known)
                        startClip(stream->second);
                }
                if (open && known) {
                    addStream(clips.back(), stream->second);
                    taken.insert(stream->first);
                }
            }
            if (open)
                clips.back().files.push_back(ToWide(playlist.path));
        }
        // Streams that no playlist names still make clips of their own.
        for (const auto& [number, stream] : streams) {
            if (taken.count(number))
                continue;
            startClip(stream);
            addStream(clips.back(), stream);
        }
        return clips;
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeAvchdProvider() {
    return std::make_unique<AvchdProvider>();
}

} // namespace Browse
