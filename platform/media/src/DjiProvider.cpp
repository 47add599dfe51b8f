#include "CardFamilies.h"
#include "CardFolder.h"

namespace Browse {
namespace {

using namespace card;

// DCIM/100MEDIA (drones) or DCIM/DJI_001 (handhelds), any number.
bool IsDjiFolder(const Entry& entry) {
    if (!entry.folder)
        return false;
    const std::string& name = entry.name;
    return (name.size() == 8 && AllDigits(name.substr(0, 3)) && EqualsNoCase(name.substr(3), "MEDIA")) ||
           (name.size() == 7 && StartsWithNoCase(name, "DJI_") && AllDigits(name.substr(4)));
}

class DjiProvider : public CardProvider {
public:
    std::string GetIdentification() const override { return std::string(kIdentificationPrefix) + "DJI"; }
    std::vector<Fnd::WString> MediaExtensions() const override { return {u"mp4", u"mov"}; }

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        std::optional<fs::path> dcim = AncestorNamed(ToPath(filePath), "DCIM", 2);
        return dcim ? ToWide(dcim->parent_path()) : Fnd::WString();
    }

    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        const std::optional<fs::path> dcim = ChildFolder(ToPath(cardRoot), "DCIM");
        if (!dcim)
            return {};
        std::vector<CardClip> clips;
        for (const Entry& folder : List(*dcim)) {
            if (!IsDjiFolder(folder))
                continue;
            const NameIndex index(folder.path);
            for (const Entry& entry : index.Entries()) {
                const std::string extension = Extension(entry.name);
                if (entry.folder || !(EqualsNoCase(extension, "MP4") || EqualsNoCase(extension, "MOV")))
                    continue;
                const std::string stem = Stem(entry.name);
                CardClip clip;
                clip.family = GetIdentification();
                clip.name = Fnd::FromUTF8(stem);
                clip.mediaPath = ToWide(entry.path);
                clip.files.push_back(clip.mediaPath);
                index.AppendIfPresent(stem + ".LRF", clip.files);
                index.AppendIfPresent(stem + ".SRT", clip.files);
                clips.push_back(std::move(clip));
            }
        }
        return clips;
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeDjiProvider() {
    return std::make_unique<DjiProvider>();
}

} // namespace Browse
