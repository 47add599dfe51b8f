#include <algorithm>
#include <map>
#include <set>

#include "CardFamilies.h"
#include "CardFolder.h"
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

class P2Provider : public CardProvider {
public:
    std::string GetIdentification() const override { return std::string(kIdentificationPrefix) + "P2"; }
    std::vector<Fnd::WString> MediaExtensions() const override { return {u"mxf"}; }

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        std::optional<fs::path> contents = AncestorNamed(ToPath(filePath), "CONTENTS", 2);
        return contents ? ToWide(contents->parent_path()) : Fnd::WString();
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
            if (entry.folder || !EqualsNoCase(Extension(entry.name), "XML") || Stem(entry.name).size() != 6)
                continue;
            P2Part part;
            part.id = Stem(entry.name);
            part.xml = ReadP2ClipXml(entry.path).value_or(P2ClipXml{});
            part.clip.family = GetIdentification();
            part.clip.name = Fnd::FromUTF8(part.xml.userClipName.empty() ? part.id : part.xml.userClipName);
            std::vector<Fnd::WString>& files = part.clip.files;
            video.AppendIfPresent(part.id + ".MXF", files);
            for (int channel = 0; channel < 16; ++channel)
                audio.AppendIfPresent(part.id + (channel < 10 ? "0" : "") + std::to_string(channel) + ".MXF",
                                      files);
            part.clip.mediaPath = files.empty() ? ToWide(entry.path) : files.front();
            icon.AppendIfPresent(part.id + ".BMP", files);
            for (int channel = 0; channel < 16; ++channel)
                voice.AppendIfPresent(part.id + (channel < 10 ? "0" : "") + std::to_string(channel) + ".WAV",
                                      files);
            proxy.AppendIfPresent(part.id + ".MP4", files);
            proxy.AppendIfPresent(part.id + ".BIN", files);
            files.push_back(ToWide(entry.path));
            clipIndex.AppendIfPresent(part.id + ".XMP", files);
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
