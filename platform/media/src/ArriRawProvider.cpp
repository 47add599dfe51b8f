#include <algorithm>

#include "CardFamilies.h"
#include "CardFamilyProvider.h"

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

class ArriRawProvider : public CardFamilyProvider {
public:
    ArriRawProvider() : CardFamilyProvider("ARRIRAW", {u"ari"}) {}

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
        std::vector<Fnd::WString> files;
        for (const Entry& frame : frames)
            files.push_back(ToWide(frame.path));
        for (const char* companion : {"xml", "wav"})
            if (std::optional<fs::path> folder = ChildFolder(clipFolder.path, companion))
                AppendAllFiles(*folder, files);
        clips.push_back(MakeClip(clipFolder.name, std::move(files)));
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeArriRawProvider() {
    return std::make_unique<ArriRawProvider>();
}

} // namespace Browse
