#include "CardFamilies.h"
#include "CardFamilyProvider.h"

namespace Browse {
namespace {

using namespace card;

class XavcSProvider : public CardFamilyProvider {
public:
    XavcSProvider() : CardFamilyProvider("XAVCS", {u"mp4"}) {}

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        std::optional<fs::path> m4root = AncestorNamed(ToPath(filePath), "M4ROOT", 2);
        return m4root ? ToWide(AboveIfNamed(m4root->parent_path(), "PRIVATE")) : Fnd::WString();
    }

    // M4ROOT (under PRIVATE, or at the top on some cameras) with MEDIAPRO.XML: each MP4 of CLIP
    // with its metadata, its thumbnail and any proxies of SUB.
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
        AppendStemClips(
            clipIndex, {"MP4"},
            [&](const std::string& stem, std::vector<Fnd::WString>& files) {
                clipIndex.AppendIfPresent(stem + "M01.XML", files);
                thumbnails.AppendIfPresent(stem + "T01.JPG", files);
                for (const Entry* proxy : sub.WithPrefix(stem + "S"))
                    if (IsFileOfType(*proxy, {"MP4"}))
                        files.push_back(ToWide(proxy->path));
                return true;
            },
            clips);
        return clips;
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeXavcSProvider() {
    return std::make_unique<XavcSProvider>();
}

} // namespace Browse
