#include <algorithm>

#include "CardFamilies.h"
#include "CardFamilyProvider.h"

namespace Browse {
namespace {

using namespace card;

// The part number of "<clip>_NNN.R3D"; -1 for any other name.
long PartNumber(const std::string& name) {
    const std::string stem = Stem(name);
    const std::size_t underscore = stem.rfind('_');
    if (!EqualsNoCase(Extension(name), "R3D") || underscore == std::string::npos ||
        !AllDigits(stem.substr(underscore + 1)))
        return -1;
    return std::stol(stem.substr(underscore + 1));
}

class RedProvider : public CardFamilyProvider {
public:
    RedProvider() : CardFamilyProvider("RED", {u"r3d"}) {}

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        const fs::path clipFolder = ToPath(filePath).parent_path();
        const fs::path magazine = clipFolder.parent_path();
        if (!EqualsNoCase(Extension(clipFolder.filename().string()), "RDC") ||
            !EqualsNoCase(Extension(magazine.filename().string()), "RDM"))
            return {};
        return ToWide(magazine.parent_path());
    }

    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        std::vector<CardClip> clips;
        for (const Entry& magazine : List(ToPath(cardRoot))) {
            if (!magazine.folder || !EqualsNoCase(Extension(magazine.name), "RDM"))
                continue;
            for (const Entry& clipFolder : List(magazine.path))
                if (clipFolder.folder && EqualsNoCase(Extension(clipFolder.name), "RDC"))
                    AppendClip(clipFolder, clips);
        }
        return clips;
    }

private:
    void AppendClip(const Entry& clipFolder, std::vector<CardClip>& clips) const {
        const std::vector<Entry> entries = List(clipFolder.path);
        std::vector<std::pair<long, const Entry*>> parts;
        for (const Entry& entry : entries)
            if (!entry.folder && PartNumber(entry.name) >= 0)
                parts.emplace_back(PartNumber(entry.name), &entry);
        if (parts.empty())
            return;
        // Numeric order: _010 follows _009 even where names were written without padding.
        std::stable_sort(parts.begin(), parts.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        std::vector<Fnd::WString> files;
        for (const auto& part : parts)
            files.push_back(ToWide(part.second->path));
        for (const Entry& entry : entries)
            if (IsFileOfType(entry, {"RMD", "RTN", "MOV"}))
                files.push_back(ToWide(entry.path));
        clips.push_back(MakeClip(Stem(clipFolder.name), std::move(files)));
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeRedProvider() {
    return std::make_unique<RedProvider>();
}

} // namespace Browse
