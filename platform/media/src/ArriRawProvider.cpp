#include <algorithm>

#include "CardFamilies.h"
#include "CardFolder.h"

namespace Browse {
namespace {

using namespace card;

// How deep below its clip folder a frame may lie.
constexpr int kFrameDepth = 3;

// "<clip>.<7 digits>.ari" for the clip folder's name.
bool IsFrameOf(const std::string& fileName, const std::string& clipName) {
    if (!EqualsNoCase(Extension(fileName), "ari"))
        return false;
    const std::string stem = Stem(fileName);
    return stem.size() == clipName.size() + 8 && EqualsNoCase(stem.substr(0, clipName.size()), clipName) &&
           stem[clipName.size()] == '.' && AllDigits(stem.substr(clipName.size() + 1));
}

void CollectFrames(const fs::path& folder, const std::string& clipName, int depth,
                   std::vector<Entry>& frames) {
    for (const Entry& entry : List(folder)) {
        if (entry.folder) {
            if (depth > 0 && !EqualsNoCase(entry.name, "xml") && !EqualsNoCase(entry.name, "wav"))
                CollectFrames(entry.path, clipName, depth - 1, frames);
        } else if (IsFrameOf(entry.name, clipName)) {
            frames.push_back(entry);
        }
    }
}

void AppendAllFiles(const fs::path& folder, std::vector<Fnd::WString>& files) {
    for (const Entry& entry : List(folder)) {
        if (entry.folder)
            AppendAllFiles(entry.path, files);
        else
            files.push_back(ToWide(entry.path));
    }
}

class ArriRawProvider : public CardProvider {
public:
    std::string GetIdentification() const override { return std::string(kIdentificationPrefix) + "ARRIRAW"; }
    std::vector<Fnd::WString> MediaExtensions() const override { return {u"ari"}; }

    // <card>/<Reel>/<Clip>/.../<Clip>.<frame>.ari, or a file of the clip's xml/ or wav/ folder.
    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        const fs::path file = ToPath(filePath);
        const std::string fileName = file.filename().string();
        std::optional<fs::path> clipFolder;
        if (EqualsNoCase(Extension(fileName), "ari")) {
            const std::size_t dot = fileName.find('.');
            clipFolder = AncestorNamed(file, fileName.substr(0, dot), kFrameDepth + 1);
        } else {
            const std::string parent = file.parent_path().filename().string();
            if (EqualsNoCase(parent, "xml") || EqualsNoCase(parent, "wav"))
                clipFolder = file.parent_path().parent_path();
        }
        if (!clipFolder || !clipFolder->parent_path().has_parent_path())
            return {};
        return ToWide(clipFolder->parent_path().parent_path());
    }

    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        std::vector<CardClip> clips;
        for (const Entry& reel : List(ToPath(cardRoot))) {
            if (!reel.folder)
                continue;
            for (const Entry& clipFolder : List(reel.path))
                if (clipFolder.folder)
                    AppendClip(clipFolder, clips);
        }
        return clips;
    }

private:
    void AppendClip(const Entry& clipFolder, std::vector<CardClip>& clips) const {
        std::vector<Entry> frames;
        CollectFrames(clipFolder.path, clipFolder.name, kFrameDepth, frames);
        if (frames.empty())
            return;
        // Frame numbers have a fixed width, so name order is frame order; gaps are allowed.
        std::sort(frames.begin(), frames.end(),
                  [](const Entry& a, const Entry& b) { return a.name < b.name; });
        CardClip clip;
        clip.family = GetIdentification();
        clip.name = Fnd::FromUTF8(clipFolder.name);
        for (const Entry& frame : frames)
            clip.files.push_back(ToWide(frame.path));
        clip.mediaPath = clip.files.front();
        for (const char* companion : {"xml", "wav"})
            if (std::optional<fs::path> folder = ChildFolder(clipFolder.path, companion))
                AppendAllFiles(*folder, clip.files);
        clips.push_back(std::move(clip));
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeArriRawProvider() {
    return std::make_unique<ArriRawProvider>();
}

} // namespace Browse
