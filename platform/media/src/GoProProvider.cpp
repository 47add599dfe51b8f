#include <algorithm>
#include <map>

#include "CardFamilies.h"
#include "CardFamilyProvider.h"

namespace Browse {
namespace {

using namespace card;

// What a GoPro file name says: which video it belongs to and which chapter it is. Recent
// cameras write G<encoding><chapter><video> (GH011234, GX021234, looping GHAA1234); older ones
// GOPR1234 for the first chapter and GP011234, GP021234 for the next.
struct GoProName {
    std::string video;   // a key shared by every file of one video
    std::string chapter; // sorts in play order
    bool valid = false;
};

GoProName ParseName(const std::string& stem) {
    GoProName parsed;
    const std::string upper = Upper(stem);
    if (upper.size() != 8 || !AllDigits(upper.substr(4)))
        return parsed;
    const std::string number = upper.substr(4);
    if (upper.compare(0, 4, "GOPR") == 0) {
        parsed = {"old" + number, "00", true};
    } else if (upper.compare(0, 2, "GP") == 0 && AllDigits(upper.substr(2, 2))) {
        parsed = {"old" + number, upper.substr(2, 2), true};
    } else if (upper[0] == 'G' && (upper[1] == 'H' || upper[1] == 'X' || upper[1] == 'L')) {
        // Low-resolution proxies (GL) share the video of the full-resolution chapters.
        parsed = {"new" + number, upper.substr(2, 2), true};
    }
    return parsed;
}

bool IsGoProFolder(const Entry& folder) {
    return folder.name.size() == 8 && folder.name[0] == '1' && AllDigits(folder.name.substr(0, 3)) &&
           EqualsNoCase(folder.name.substr(3), "GOPRO");
}

class GoProProvider : public CardFamilyProvider {
public:
    GoProProvider() : CardFamilyProvider("GoPro", {u"mp4"}) {}

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        return RootAbove(filePath, "DCIM", 2);
    }

    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        std::vector<CardClip> clips;
        for (const Entry& folder : FamilyFolders(cardRoot, "DCIM", IsGoProFolder))
            AppendFolderClips(folder.path, clips);
        return clips;
    }

private:
    void AppendFolderClips(const fs::path& folder, std::vector<CardClip>& clips) const {
        struct Video {
            std::vector<std::pair<std::string, const Entry*>> chapters;
            std::vector<const Entry*> companions;
        };
        const std::vector<Entry> entries = List(folder);
        std::map<std::string, Video> videos;
        for (const Entry& entry : entries) {
            if (entry.folder)
                continue;
            const GoProName name = ParseName(Stem(entry.name));
            if (!name.valid)
                continue;
            const bool proxy = StartsWithNoCase(entry.name, "GL");
            if (IsFileOfType(entry, {"MP4"}) && !proxy)
                videos[name.video].chapters.emplace_back(name.chapter, &entry);
            else if (IsFileOfType(entry, {"THM", "LRV"}))
                videos[name.video].companions.push_back(&entry);
        }
        std::vector<std::pair<Fnd::WString, CardClip>> ordered;
        for (auto& [key, video] : videos) {
            if (video.chapters.empty())
                continue;
            std::stable_sort(video.chapters.begin(), video.chapters.end(),
                             [](const auto& a, const auto& b) { return a.first < b.first; });
            std::vector<Fnd::WString> files;
            for (const auto& chapter : video.chapters)
                files.push_back(ToWide(chapter.second->path));
            for (const Entry* companion : video.companions)
                files.push_back(ToWide(companion->path));
            CardClip clip = MakeClip(Stem(video.chapters.front().second->name), std::move(files));
            ordered.emplace_back(clip.mediaPath, std::move(clip));
        }
        // In the order of the first chapters on disk.
        std::sort(ordered.begin(), ordered.end(),
                  [](const auto& a, const auto& b) { return a.first < b.first; });
        for (auto& entry : ordered)
            clips.push_back(std::move(entry.second));
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeGoProProvider() {
    return std::make_unique<GoProProvider>();
}

} // namespace Browse
