#include "CanonClipsFolders.h"
#include "CardFamilies.h"
#include "CardFamilyProvider.h"

namespace Browse {
namespace {

using namespace card;

class CanonXfProvider : public CardFamilyProvider {
public:
    CanonXfProvider() : CardFamilyProvider("CanonXF", {u"mxf"}) {}

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        return RootAbove(filePath, "CONTENTS", 3);
    }

    // Each clip is a folder AAnnnn/ whose MXF parts, split at 2 GB, play in name order; the whole
    // folder travels with it.
    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        std::vector<CardClip> clips;
        for (const Entry& clipsFolder : CanonClipsFolders(cardRoot))
            for (const Entry& clipFolder : List(clipsFolder.path)) {
                std::vector<Fnd::WString> files;
                if (clipFolder.folder && AppendMediaFirst(clipFolder.path, "MXF", files) > 0)
                    clips.push_back(MakeClip(clipFolder.name, std::move(files)));
            }
        return clips;
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeCanonXfProvider() {
    return std::make_unique<CanonXfProvider>();
}

} // namespace Browse
