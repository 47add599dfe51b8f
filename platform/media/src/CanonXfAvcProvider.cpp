#include "CardFamilies.h"
#include "CardFolder.h"

namespace Browse {
namespace {

using namespace card;

class CanonXfAvcProvider : public CardProvider {
public:
    std::string GetIdentification() const override {
        return std::string(kIdentificationPrefix) + "CanonXFAVC";
    }
    std::vector<Fnd::WString> MediaExtensions() const override { return {u"mxf"}; }

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        std::optional<fs::path> contents = AncestorNamed(ToPath(filePath), "CONTENTS", 2);
        return contents ? ToWide(contents->parent_path()) : Fnd::WString();
    }

    // CONTENTS/CLIPSnnn/ with INDEX.MIF holding <name>.MXF beside <name>.XML, no clip folders.
    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        const std::optional<fs::path> contents = ChildFolder(ToPath(cardRoot), "CONTENTS");
        if (!contents)
            return {};
        std::vector<CardClip> clips;
        for (const Entry& clipsFolder : List(*contents)) {
            if (!clipsFolder.folder || !StartsWithNoCase(clipsFolder.name, "CLIPS"))
                continue;
            const NameIndex index(clipsFolder.path);
            if (!index.Find("INDEX.MIF"))
                continue;
            for (const Entry& entry : index.Entries()) {
                if (entry.folder || !EqualsNoCase(Extension(entry.name), "MXF"))
                    continue;
                const std::string name = Stem(entry.name);
                CardClip clip;
                clip.family = GetIdentification();
                clip.name = Fnd::FromUTF8(name);
                clip.mediaPath = ToWide(entry.path);
                clip.files.push_back(clip.mediaPath);
                if (!index.AppendIfPresent(name + ".XML", clip.files))
                    continue;
                clips.push_back(std::move(clip));
            }
        }
        return clips;
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeCanonXfAvcProvider() {
    return std::make_unique<CanonXfAvcProvider>();
}

} // namespace Browse
