#include "CardFamilies.h"
#include "CardFamilyProvider.h"

namespace Browse {
namespace {

using namespace card;

// The folder that holds MEDIAPRO.XML, DISCMETA.XML and Clip/; the disc-metadata file is what
// tells this family from XAVC S, whose M4ROOT also holds a MEDIAPRO.XML and a CLIP folder.
bool IsXdcamRoot(const fs::path& folder) {
    return ChildFolder(folder, "Clip") && Child(folder, "MEDIAPRO.XML") && Child(folder, "DISCMETA.XML");
}

class XdcamProvider : public CardFamilyProvider {
public:
    XdcamProvider() : CardFamilyProvider("XDCAM", {u"mxf"}) {}

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        fs::path folder = ToPath(filePath).parent_path();
        const std::string name = folder.filename().string();
        if (!EqualsNoCase(name, "Clip") && !EqualsNoCase(name, "Sub") && !EqualsNoCase(name, "Local"))
            return {};
        const fs::path root = folder.parent_path();
        if (!EqualsNoCase(root.filename().string(), "XDROOT"))
            return ToWide(root);
        return ToWide(AboveIfNamed(root.parent_path(), "PRIVATE"));
    }

    // The structure may sit at the top of the card, in XDROOT, or in PRIVATE/XDROOT.
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
        // The clip name is the whole stem: user names may end in anything, so nothing is stripped
        // from it. Without its metadata file an MXF is not a clip of this card.
        AppendStemClips(
            clipIndex, {"MXF"},
            [&](const std::string& stem, std::vector<Fnd::WString>& files) {
                if (!clipIndex.AppendIfPresent(stem + "M01.XML", files))
                    return false;
                clipIndex.AppendIfPresent(stem + "R01.BIM", files);
                clipIndex.AppendIfPresent(stem + "M02.KLV", files);
                clipIndex.AppendIfPresent(stem + "I01.PPN", files);
                sub.AppendIfPresent(stem + "S01.MXF", files);
                local.AppendIfPresent(stem + "C01.SMI", files);
                local.AppendIfPresent(stem + "I01.PPN", files);
                return true;
            },
            clips);
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeXdcamProvider() {
    return std::make_unique<XdcamProvider>();
}

} // namespace Browse
