#include <map>
#include <set>

#include "CardFamilies.h"
#include "CardFamilyProvider.h"
#include "MplPlaylist.h"

namespace Browse {
namespace {

using namespace card;

class AvchdProvider : public CardFamilyProvider {
public:
    AvchdProvider() : CardFamilyProvider("AVCHD", {u"mts", u"m2ts"}) {}

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        std::optional<fs::path> bdmv = AncestorNamed(ToPath(filePath), "BDMV", 2);
        if (!bdmv || !EqualsNoCase(bdmv->parent_path().filename().string(), "AVCHD"))
            return {};
        return ToWide(AboveIfNamed(bdmv->parent_path().parent_path(), "PRIVATE"));
    }

    // A clip is one recording: the streams a playlist plays without a break, each with its clip
    // information, then the playlist.
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
            if (IsFileOfType(entry, {"MTS", "M2TS"}))
                streams.emplace(Upper(Stem(entry.name)), entry);

        auto streamFiles = [&clipInfo](const Entry& stream) {
            std::vector<Fnd::WString> files{ToWide(stream.path)};
            const std::string number = Stem(stream.name);
            if (!clipInfo.AppendIfPresent(number + ".CPI", files))
                clipInfo.AppendIfPresent(number + ".clpi", files);
            return files;
        };
        std::set<std::string> taken;
        std::vector<CardClip> clips;
        // Each recording of a playlist: its first item and the items that continue it.
        for (const Entry& playlist : playlists.Entries()) {
            if (!IsFileOfType(playlist, {"MPL", "MPLS"}))
                continue;
            bool open = false;
            for (const MplPlayItem& item : ReadMplPlayItems(playlist.path)) {
                auto stream = streams.find(Upper(item.stream));
                const bool known = stream != streams.end() && !taken.count(stream->first);
                if (item.continuesPrevious && open) {
                    if (known) {
                        const std::vector<Fnd::WString> files = streamFiles(stream->second);
                        clips.back().files.insert(clips.back().files.end(), files.begin(), files.end());
                    }
                } else {
                    if (open)
                        clips.back().files.push_back(ToWide(playlist.path));
                    open = known;
                    if (known)
                        clips.push_back(MakeClip(Stem(stream->second.name), streamFiles(stream->second)));
                }
                if (open && known)
                    taken.insert(stream->first);
            }
            if (open)
                clips.back().files.push_back(ToWide(playlist.path));
        }
        // Streams that no playlist names still make clips of their own.
        for (const auto& [number, stream] : streams)
            if (!taken.count(number))
                clips.push_back(MakeClip(Stem(stream.name), streamFiles(stream)));
        return clips;
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeAvchdProvider() {
    return std::make_unique<AvchdProvider>();
}

} // namespace Browse
