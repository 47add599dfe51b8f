#include <map>

#include "CardFamilies.h"
#include "CardFamilyProvider.h"

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

class XdcamExProvider : public CardFamilyProvider {
public:
    XdcamExProvider() : CardFamilyProvider("XDCAMEX", {u"mp4"}) {}

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        return RootAbove(filePath, "BPAV", 3);
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
        const NameIndex takr(ChildFolder(*bpav, "TAKR"));
        std::vector<CardClip> clips;
        for (const std::string& key : order) {
            const std::vector<Entry>& folders = takes[key];
            std::vector<Fnd::WString> files;
            for (const Entry& folder : folders)
                AppendMediaFirst(folder.path, "MP4", files);
            // A part folder without its MP4 still travels, and stands for the take if it is all
            // there is.
            if (files.empty())
                continue;
            if (std::optional<fs::path> takeFolder = takr.FindFolder(key))
                for (const Entry& entry : List(*takeFolder))
                    if (!entry.folder && StartsWithNoCase(entry.name, key))
                        files.push_back(ToWide(entry.path));
            clips.push_back(MakeClip(TakeOfFolder(folders.front().name), std::move(files)));
        }
        return clips;
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeXdcamExProvider() {
    return std::make_unique<XdcamExProvider>();
}

} // namespace Browse
