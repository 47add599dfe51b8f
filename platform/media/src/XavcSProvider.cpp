#include "CardFamilies.h"
#include "CardFolder.h"

namespace Browse {
namespace {

using namespace card;

class XavcSProvider : public CardProvider {
public:
    std::string GetIdentification() const override { return std::string(kIdentificationPrefix) + "XAVCS"; }
    std::vector<Fnd::WString> MediaExtensions() const override { return {u"mp4"}; }

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        std::optional<fs::path> m4root = AncestorNamed(ToPath(filePath), "M4ROOT", 2);
        if (!m4root)
            return {};
        fs::path root = m4root->parent_path();
        if (EqualsNoCase(root.filename().string(), "PRIVATE"))
            root = root.parent_path();
        return ToWide(root);
    }

    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        const fs::path root = ToPath(cardRoot);
        std::optional<fs::path> m4root = Descend(root, {"PRIVATE", "M4ROOT"});
        if (!m4root)
            m4root = ChildFolder(root, "M4ROOT");
        const std::optional<fs::path> clipFolder = m4root ? ChildFolder(*m4root, "CLIP") : std::nullopt;
        if (!clipFolder || !Child(*m4root, "MEDIAPRO.XML"))
            return {};
        const NameIndex clipIndex(clipFolder);
        const NameIndex thumbnails(ChildFolder(*m4root, "THMBNL"));
        const NameIndex sub(ChildFolder(*m4root, "SUB"));
        std::vector<CardClip> clips;
        for (const Entry& entry : clipIndex.Entries()) {
            if (entry.folder || !EqualsNoCase(Extension(entry.name), "MP4"))
                continue;
            const std::string stem = Stem(entry.name);
            CardClip clip;
            clip.family = GetIdentification();
            clip.name = Fnd::FromUTF8(stem);
            clip.mediaPath = ToWide(entry.path);
            clip.files.push_back(clip.mediaPath);
            clipIndex.AppendIfPresent(stem + "M01.XML", clip.files);
            thumbnails.AppendIfPresent(stem + "T01.JPG", clip.files);
            for (const Entry& proxy : sub.Entries())
                if (!proxy.folder && StartsWithNoCase(proxy.name, stem + "S") &&
                    EqualsNoCase(Extension(proxy.name), "MP4"))
                    clip.files.push_back(ToWide(proxy.path));
            clips.push_back(std::move(clip));
        }
        return clips;
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeXavcSProvider() {
    return std::make_unique<XavcSProvider>();
}

} // namespace Browse
