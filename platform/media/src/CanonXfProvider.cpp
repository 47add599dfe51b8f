#include "CardFamilies.h"
#include "CardFolder.h"

namespace Browse {
namespace {

using namespace card;

class CanonXfProvider : public CardProvider {
public:
    std::string GetIdentification() const override { return std::string(kIdentificationPrefix) + "CanonXF"; }
    std::vector<Fnd::WString> MediaExtensions() const override { return {u"mxf"}; }

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        std::optional<fs::path> contents = AncestorNamed(ToPath(filePath), "CONTENTS", 3);
        return contents ? ToWide(contents->parent_path()) : Fnd::WString();
    }

    // CONTENTS/CLIPSnnn/ with INDEX.MIF; each clip is a folder AAnnnn/ whose MXF parts split at
    // 2 GB play in name order, and the whole folder travels with it.
    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        const std::optional<fs::path> contents = ChildFolder(ToPath(cardRoot), "CONTENTS");
        if (!contents)
            return {};
        std::vector<CardClip> clips;
        for (const Entry& clipsFolder : List(*contents)) {
            if (!clipsFolder.folder || !StartsWithNoCase(clipsFolder.name, "CLIPS") ||
                !Child(clipsFolder.path, "INDEX.MIF"))
                continue;
            for (const Entry& clipFolder : List(clipsFolder.path)) {
                if (!clipFolder.folder)
                    continue;
                CardClip clip;
                clip.family = GetIdentification();
                clip.name = Fnd::FromUTF8(clipFolder.name);
                const std::vector<Entry> entries = List(clipFolder.path);
                for (const Entry& entry : entries)
                    if (!entry.folder && EqualsNoCase(Extension(entry.name), "MXF"))
                        clip.files.push_back(ToWide(entry.path));
                if (clip.files.empty())
                    continue;
                clip.mediaPath = clip.files.front();
                for (const Entry& entry : entries)
                    if (!entry.folder && !EqualsNoCase(Extension(entry.name), "MXF"))
                        clip.files.push_back(ToWide(entry.path));
                clips.push_back(std::move(clip));
            }
        }
        return clips;
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeCanonXfProvider() {
    return std::make_unique<CanonXfProvider>();
}

} // namespace Browse
