#include <algorithm>
#include <map>
#include <set>

#include "Browse/RefusedCardFiles.h"
#include "CardFamilies.h"
#include "CardFamilyProvider.h"
#include "P2ClipXml.h"

namespace Browse {
namespace {

using namespace card;

// A P2 clip: one id of CONTENTS/CLIP, with what its XML says about spanning.
struct P2Part {
    std::string id; // as on disk
    P2ClipXml xml;
    CardClip clip;
    // 0 for the card being scanned, else the card beside it that holds the part.
    std::size_t card = 0;
};

// The files of one clip that carry a channel each, <id>00 to <id>15, in channel order.
void AppendChannels(const NameIndex& folder, const std::string& id, std::string_view extension,
                    std::vector<Fnd::WString>& files) {
    std::string name = id + "00" + std::string(extension);
    for (int channel = 0; channel < 16; ++channel) {
        name[id.size()] = static_cast<char>('0' + channel / 10);
        name[id.size() + 1] = static_cast<char>('0' + channel % 10);
        folder.AppendIfPresent(name, files);
    }
}

// Whether a part links to one that is not on its card: only then can another card complete it.
bool LinksOffCard(const std::vector<P2Part>& parts) {
    std::set<std::string> ids;
    for (const P2Part& part : parts)
        if (!part.xml.globalClipId.empty())
            ids.insert(part.xml.globalClipId);
    auto missing = [&ids](const std::string& id) { return !id.empty() && !ids.count(id); };
    return std::any_of(parts.begin(), parts.end(), [&](const P2Part& part) {
        return missing(part.xml.top) || missing(part.xml.next) || missing(part.xml.previous);
    });
}

class P2Provider : public CardFamilyProvider {
public:
    P2Provider() : CardFamilyProvider("P2", {u"mxf"}) {}

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        return RootAbove(filePath, "CONTENTS", 2);
    }

    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        return JoinSpans(ReadParts(cardRoot, 0));
    }

    std::vector<CardClip> FindClipsAmong(const Fnd::WString& cardRoot,
                                         const std::vector<Fnd::WString>& openBeside) const override {
        std::vector<P2Part> parts = ReadParts(cardRoot, 0);
        // Most cards hold whole recordings: the cards beside are read only for one that does not.
        if (!openBeside.empty() && LinksOffCard(parts))
            for (std::size_t i = 0; i < openBeside.size(); ++i) {
                std::vector<P2Part> more = ReadParts(openBeside[i], i + 1);
                parts.insert(parts.end(), std::make_move_iterator(more.begin()),
                             std::make_move_iterator(more.end()));
            }
        return JoinSpans(std::move(parts));
    }

private:
    std::vector<P2Part> ReadParts(const Fnd::WString& cardRoot, std::size_t card) const {
        const std::optional<fs::path> contents = ChildFolder(ToPath(cardRoot), "CONTENTS");
        // A CONTENTS folder without CLIP belongs to another family.
        const std::optional<fs::path> clipFolder = contents ? ChildFolder(*contents, "CLIP") : std::nullopt;
        if (!clipFolder)
            return {};
        const NameIndex clipIndex(clipFolder);
        const NameIndex video(ChildFolder(*contents, "VIDEO"));
        const NameIndex audio(ChildFolder(*contents, "AUDIO"));
        const NameIndex icon(ChildFolder(*contents, "ICON"));
        const NameIndex voice(ChildFolder(*contents, "VOICE"));
        const NameIndex proxy(ChildFolder(*contents, "PROXY"));

        std::vector<P2Part> parts;
        for (const Entry& entry : clipIndex.Entries()) {
            if (!IsFileOfType(entry, {"XML"}) || Stem(entry.name).size() != 6)
                continue;
            // A clip file that cannot be trusted leaves its clip out, named, rather than guessed at.
            std::string refusal;
            std::optional<P2ClipXml> xml = ReadP2ClipXml(entry.path, refusal);
            if (!xml) {
                RefusedCardFiles::Report(ToWide(entry.path), std::move(refusal));
                continue;
            }
            P2Part part;
            part.id = Stem(entry.name);
            part.card = card;
            part.xml = std::move(*xml);
            std::vector<Fnd::WString> files;
            video.AppendIfPresent(part.id + ".MXF", files);
            AppendChannels(audio, part.id, ".MXF", files);
            // A clip whose essence is missing still shows, by its XML.
            const Fnd::WString media = files.empty() ? ToWide(entry.path) : files.front();
            icon.AppendIfPresent(part.id + ".BMP", files);
            AppendChannels(voice, part.id, ".WAV", files);
            proxy.AppendIfPresent(part.id + ".MP4", files);
            proxy.AppendIfPresent(part.id + ".BIN", files);
            files.push_back(ToWide(entry.path));
            clipIndex.AppendIfPresent(part.id + ".XMP", files);
            part.clip =
                MakeClip(part.xml.userClipName.empty() ? part.id : part.xml.userClipName, std::move(files));
            part.clip.mediaPath = media;
            parts.push_back(std::move(part));
        }
        return parts;
    }

    // Parts of one shot become one clip when their chain from the Top part runs unbroken to a
    // part without Next; a broken chain leaves every part its own clip. Answers the clips of card
    // 0: a joined clip belongs to the card of its Top part, wherever its other parts lie.
    static std::vector<CardClip> JoinSpans(std::vector<P2Part> parts) {
        // Of two parts with one id (a card and its copy side by side), the scanned card's comes
        // first and wins.
        std::map<std::string, std::size_t> byGlobalId;
        for (std::size_t i = 0; i < parts.size(); ++i)
            if (!parts[i].xml.globalClipId.empty())
                byGlobalId.emplace(parts[i].xml.globalClipId, i);

        std::vector<bool> joined(parts.size(), false);
        std::vector<std::vector<std::size_t>> chains(parts.size());
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const P2ClipXml& xml = parts[i].xml;
            if (xml.globalClipId.empty() || xml.top != xml.globalClipId || xml.next.empty() ||
                byGlobalId.at(xml.globalClipId) != i)
                continue;
            std::vector<std::size_t> chain{i};
            std::set<std::size_t> seen{i};
            bool complete = false;
            for (std::size_t at = i;;) {
                const std::string& next = parts[at].xml.next;
                if (next.empty()) {
                    complete = true;
                    break;
                }
                auto found = byGlobalId.find(next);
                if (found == byGlobalId.end() || seen.count(found->second) ||
                    parts[found->second].xml.top != xml.top)
                    break;
                at = found->second;
                seen.insert(at);
                chain.push_back(at);
            }
            if (!complete)
                continue;
            std::stable_sort(chain.begin(), chain.end(), [&parts](std::size_t a, std::size_t b) {
                return parts[a].xml.offsetInShot < parts[b].xml.offsetInShot;
            });
            for (std::size_t member : chain)
                joined[member] = true;
            chains[i] = std::move(chain);
        }

        std::vector<CardClip> clips;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (parts[i].card != 0)
                continue;
            if (!chains[i].empty()) {
                // The Top part's media stands for the clip, so that its entry stays on its own
                // card even should the offsets of the parts disagree with their chain.
                CardClip clip = parts[i].clip;
                clip.files.clear();
                for (std::size_t member : chains[i])
                    clip.files.insert(clip.files.end(), parts[member].clip.files.begin(),
                                      parts[member].clip.files.end());
                clips.push_back(std::move(clip));
            } else if (!joined[i]) {
                clips.push_back(std::move(parts[i].clip));
            }
        }
        return clips;
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeP2Provider() {
    return std::make_unique<P2Provider>();
}

} // namespace Browse
