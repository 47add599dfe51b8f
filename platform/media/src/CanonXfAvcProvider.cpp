#include "CanonClipsFolders.h"
#include "CardFamilies.h"
#include "CardFamilyProvider.h"

namespace Browse {
namespace {

using namespace card;

class CanonXfAvcProvider : public CardFamilyProvider {
public:
    CanonXfAvcProvider() : CardFamilyProvider("CanonXFAVC", {u"mxf"}) {}

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        return RootAbove(filePath, "CONTENTS", 2);
    }

    // No clip folders: <name>.MXF lies beside <name>.XML, and without its XML it is no clip.
    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        std::vector<CardClip> clips;
        for (const Entry& clipsFolder : CanonClipsFolders(cardRoot)) {
            const NameIndex index(clipsFolder.path);
            AppendStemClips(
                index, {"MXF"},
                [&index](const std::string& stem, std::vector<Fnd::WString>& files) {
                    return index.AppendIfPresent(stem + ".XML", files);
                },
                clips);
        }
        return clips;
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeCanonXfAvcProvider() {
    return std::make_unique<CanonXfAvcProvider>();
}

} // namespace Browse
