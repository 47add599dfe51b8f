#include "CardFamilies.h"
#include "CardFamilyProvider.h"

namespace Browse {
namespace {

using namespace card;

// DCIM/100MEDIA (drones) or DCIM/DJI_001 (handhelds), any number.
bool IsDjiFolder(const Entry& folder) {
    const std::string& name = folder.name;
    return (name.size() == 8 && AllDigits(name.substr(0, 3)) && EqualsNoCase(name.substr(3), "MEDIA")) ||
           (name.size() == 7 && StartsWithNoCase(name, "DJI_") && AllDigits(name.substr(4)));
}

class DjiProvider : public CardFamilyProvider {
public:
    DjiProvider() : CardFamilyProvider("DJI", {u"mp4", u"mov"}) {}

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        return RootAbove(filePath, "DCIM", 2);
    }

    // A video with its low-resolution proxy and its flight-data subtitles; stills are no clips.
    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        std::vector<CardClip> clips;
        for (const Entry& folder : FamilyFolders(cardRoot, "DCIM", IsDjiFolder)) {
            const NameIndex index(folder.path);
            AppendStemClips(
                index, {"MP4", "MOV"},
                [&index](const std::string& stem, std::vector<Fnd::WString>& files) {
                    index.AppendIfPresent(stem + ".LRF", files);
                    index.AppendIfPresent(stem + ".SRT", files);
                    return true;
                },
                clips);
        }
        return clips;
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeDjiProvider() {
    return std::make_unique<DjiProvider>();
}

} // namespace Browse
