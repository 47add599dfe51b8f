#include "CardFamilies.h"
#include "CardFolder.h"

namespace Browse {
namespace {

using namespace card;

// The folder that holds MEDIAPRO.XML, DISCMETA.XML and Clip/; the disc-metadata file is what
// tells this family from XAVC S, whose M4ROOT also holds a MEDIAPRO.XML and a CLIP folder.
bool IsXdcamRoot(const fs::path& folder) {
    return ChildFolder(folder, "Clip") && Child(folder, "MEDIAPRO.XML") && Child(folder, "DISCMETA.XML");
}

class XdcamProvider : public CardProvider {
public:
    std::string GetIdentification() const override { return std::string(kIdentificationPrefix) + "XDCAM"; }
    std::vector<Fnd::WString> MediaExtensions() const override { return {u"mxf"}; }

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        fs::path folder = ToPath(filePath).parent_path();
        const std::string name = folder.filename().string();
        if (!EqualsNoCase(name, "Clip") && !EqualsNoCase(name, "Sub") && !EqualsNoCase(name, "Local"))
            return {};
        fs::path root = folder.parent_path();
        if (EqualsNoCase(root.filename().string(), "XDROOT")) {
            root = root.parent_path();
            if (EqualsNoCase(root.filename().string(), "PRIVATE"))
                root = root.parent_path();
        }
        return ToWide(root);
    }

    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        const fs::path card = ToPath(cardRoot);
        std::vector<CardClip> clips;
        for (const std::optional<fs::path>& root :
             {std::optional<fs::path>(card), ChildFolder(card, "XDROOT"),
              Descend(card, {"PRIVATE", "XDROOT"})})
            if (root && IsXdcamRoot(*root))
                AppendClips(*root, clips);
        return clips;
    }

private:
    void AppendClips(const fs::path& root, std::vector<CardClip>& clips) const {
        const NameIndex clipIndex(ChildFolder(root, "Clip"));
        const NameIndex sub(ChildFolder(root, "Sub"));
        const NameIndex local(ChildFolder(root, "Local"));
        for (const Entry& entry : clipIndex.Entries()) {
            if (entry.folder || !EqualsNoCase(Extension(entry.name), "MXF"))
                continue;
            // The clip name is the whole stem: user names may end in anything, so nothing is
            // stripped from it. Without its metadata file an MXF is not a clip of this card.
            const std::string name = Stem(entry.name);
            std::vector<Fnd::WString> files{ToWide(entry.path)};
            if (!clipIndex.AppendIfPresent(name + "M01.XML", files))
                continue;
            clipIndex.AppendIfPresent(name + "R01.BIM", files);
            clipIndex.AppendIfPresent(name + "M02.KLV", files);
            clipIndex.AppendIfPresent(name + "I01.PPN", files);
            sub.AppendIfPresent(name + "S01.MXF", files);
            local.AppendIfPresent(name + "C01.SMI", files);
            local.AppendIfPresent(name + "I01.PPN", files);
            CardClip clip;
            clip.family = GetIdentification();
            clip.name = Fnd::FromUTF8(name);
            clip.mediaPath = files.front();
            clip.files = std::move(files);
            clips.push_back(std::move(clip));
        }
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeXdcamProvider() {
    return std::make_unique<XdcamProvider>();
}

} // namespace Browse
