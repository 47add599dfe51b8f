#include <map>

#include "CardFamilies.h"
#include "CardFamilyProvider.h"
#include "SmiReferences.h"

namespace Browse {
namespace {

using namespace card;

// The folder that holds MEDIAPRO.XML, DISCMETA.XML and Clip/; the disc-metadata file is what
// tells this family from XAVC S, whose M4ROOT also holds a MEDIAPRO.XML and a CLIP folder.
bool IsXdcamRoot(const fs::path& folder) {
    return ChildFolder(folder, "Clip") && Child(folder, "MEDIAPRO.XML") && Child(folder, "DISCMETA.XML");
}

// The SMI files of Take/ and Edit/ by the upper-case name of each media file they refer to, Take
// before Edit and each folder in name order. A take or an edit list belongs to every clip it
// names, and to no other: its own name says nothing of the clips.
std::map<std::string, std::vector<Fnd::WString>> SmiFilesByMedia(const fs::path& root) {
    std::map<std::string, std::vector<Fnd::WString>> byMedia;
    for (std::string_view name : {"Take", "Edit"}) {
        const std::optional<fs::path> folder = ChildFolder(root, name);
        if (!folder)
            continue;
        for (const Entry& entry : List(*folder))
            if (IsFileOfType(entry, {"SMI"}))
                for (const std::string& media : ReadSmiReferences(entry.path))
                    byMedia[media].push_back(ToWide(entry.path));
    }
    return byMedia;
}

class XdcamProvider : public CardFamilyProvider {
public:
    XdcamProvider() : CardFamilyProvider("XDCAM", {u"mxf"}) {}

    Fnd::WString CardRootForFile(const Fnd::WString& filePath) const override {
        fs::path folder = ToPath(filePath).parent_path();
        const std::string name = folder.filename().string();
        if (!EqualsNoCase(name, "Clip") && !EqualsNoCase(name, "Sub") && !EqualsNoCase(name, "Local"))
            return {};
        const fs::path root = folder.parent_path();
        if (!EqualsNoCase(root.filename().string(), "XDROOT"))
            return ToWide(root);
        return ToWide(AboveIfNamed(root.parent_path(), "PRIVATE"));
    }

    // The structure may sit at the top of the card, in XDROOT, or in PRIVATE/XDROOT.
    std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const override {
        const fs::path card = ToPath(cardRoot);
        std::vector<CardClip> clips;
        for (const std::optional<fs::path>& root :
             {std::optional<fs::path>(card), ChildFolder(card, "XDROOT"),
              Descend(card, {"PRIVATE", "XDROOT"})})
            if (root && IsXdcamRoot(*root))
                AppendClips(*root, clips);
        return clips;
    }

private:
    void AppendClips(const fs::path& root, std::vector<CardClip>& clips) const {
        const NameIndex clipIndex(ChildFolder(root, "Clip"));
        const NameIndex sub(ChildFolder(root, "Sub"));
        const NameIndex local(ChildFolder(root, "Local"));
        const std::map<std::string, std::vector<Fnd::WString>> smiFiles = SmiFilesByMedia(root);
        // The clip name is the whole stem: user names may end in anything, so nothing is stripped
        // from it. Without its metadata file an MXF is not a clip of this card.
        AppendStemClips(
            clipIndex, {"MXF"},
            [&](const std::string& stem, std::vector<Fnd::WString>& files) {
                if (!clipIndex.AppendIfPresent(stem + "M01.XML", files))
                    return false;
                clipIndex.AppendIfPresent(stem + "R01.BIM", files);
                clipIndex.AppendIfPresent(stem + "M02.KLV", files);
                clipIndex.AppendIfPresent(stem + "I01.PPN", files);
                sub.AppendIfPresent(stem + "S01.MXF", files);
                local.AppendIfPresent(stem + "C01.SMI", files);
                local.AppendIfPresent(stem + "I01.PPN", files);
                // The whole file name is the key: C0001 must not take the lists of C00010.
                if (auto named = smiFiles.find(Upper(stem + ".MXF")); named != smiFiles.end())
                    files.insert(files.end(), named->second.begin(), named->second.end());
                return true;
            },
            clips);
    }
};

} // namespace

std::unique_ptr<CardProvider> MakeXdcamProvider() {
    return std::make_unique<XdcamProvider>();
}

} // namespace Browse
