#include <map>

#include "CardFamilies.h"
#include "CardFolder.h"

namespace Browse {
namespace {

using namespace card;

// The take of a clip folder "<take>_NN", or empty when the name is not of that form.
std::string TakeOfFolder(const std::string& folder) {
    const std::size_t underscore = folder.rfind('_');
    if (underscore == std::string::npos || underscore == 0 || folder.size() - underscore != 3 ||
        !AllDigits(folder.substr(underscore + 1)))
        return {};
    return folder.substr(0, underscore);
}

// Media first, then the rest of the folder in name order.
void AppendFolder(const fs::path& folder, std::vector<Fnd::WString>& files) {
    const std::vector<Entry> entries = List(folder);
    for (const Entry& entry : entries)
        if (!entry.folder && EqualsNoCase(Extension(entry.name), "MP4"))
            files.push_back(ToWide(entry.path));
    for (const Entry& entry : entries)
        if (!entry.folder && !EqualsNoCase(Extension(entry.name), "MP4"))
            files.push_back(ToWide(entry.path));
}

class XdcamExProvider : public CardProvider {
public:
    std::string GetIdentification() const override { return std::string(kIdentificationPrefix) + "XDCAMEX"; }
    std::vector<Fnd::WString> MediaExtensions() const override { return {u"mp4"}; }

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        std::optional<fs::path> bpav = AncestorNamed(ToPath(filePath), "BPAV", 3);
        return bpav ? ToWide(bpav->parent_path()) : Fnd::WString();
    }

    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        const std::optional<fs::path> bpav = ChildFolder(ToPath(cardRoot), "BPAV");
        const std::optional<fs::path> clpr = bpav ? ChildFolder(*bpav, "CLPR") : std::nullopt;
        if (!clpr || !Child(*bpav, "MEDIAPRO.XML"))
            return {};
        // Folders of one take, in part order: a take split at 4 GB is one clip.
        std::map<std::string, std::vector<Entry>> takes;
        std::vector<std::string> order;
        for (const Entry& entry : List(*clpr)) {
            const std::string take = TakeOfFolder(entry.name);
            if (!entry.folder || take.empty())
                continue;
            auto& folders = takes[Upper(take)];
            if (folders.empty())
                order.push_back(Upper(take));
            folders.push_back(entry);
        }
        const std::optional<fs::path> takr = ChildFolder(*bpav, "TAKR");
        std::vector<CardClip> clips;
        for (const std::string& key : order) {
            const std::vector<Entry>& folders = takes[key];
            CardClip clip;
            clip.family = GetIdentification();
            clip.name = Fnd::FromUTF8(TakeOfFolder(folders.front().name));
            for (const Entry& folder : folders)
                AppendFolder(folder.path, clip.files);
            if (clip.files.empty())
                continue;
            clip.mediaPath = clip.files.front();
            if (std::optional<fs::path> takeFolder = takr ? ChildFolder(*takr, key) : std::nullopt)
                for (const Entry& entry : List(*takeFolder))
                    if (!entry.folder && StartsWithNoCase(entry.name, key))
                        clip.files.push_back(ToWide(entry.path));
            clips.push_back(std::move(clip));
        }
        return clips;
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeXdcamExProvider() {
    return std::make_unique<XdcamExProvider>();
}

} // namespace Browse
