#include <algorithm>
#include <map>
#include <set>

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

class P2Provider : public CardFamilyProvider {
public:
    P2Provider() : CardFamilyProvider("P2", {u"mxf"}) {}

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        return RootAbove(filePath, "CONTENTS", 2);
    }

    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
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
            P2Part part;
            part.id = Stem(entry.name);
            part.xml = ReadP2ClipXml(entry.path).value_or(P2ClipXml{});
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
        return JoinSpans(std::move(parts));
    }

private:
    // Parts of one shot become one clip when their chain from the Top part runs unbroken to a
    // part without Next; a broken chain leaves every part its own clip.
    static std::vector<CardClip> JoinSpans(std::vector<P2Part> parts) {
        std::map<std::string, std::size_t> byGlobalId;
        for (std::size_t i = 0; i < parts.size(); ++i)
            if (!parts[i].xml.globalClipId.empty())
                byGlobalId.emplace(parts[i].xml.globalClipId, i);

        std::vector<bool> joined(parts.size(), false);
        std::vector<std::vector<std::size_t>> chains(parts.size());
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const P2ClipXml& xml = parts[i].xml;
            if (xml.globalClipId.empty() || xml.top != xml.globalClipId || xml.next.empty())
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
            if (!chains[i].empty()) {
                CardClip clip = parts[i].clip;
                clip.mediaPath = parts[chains[i].front()].clip.mediaPath;
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
