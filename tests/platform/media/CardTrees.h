#pragma once
// Synthetic card trees for the provider tests: empty files with the names cameras write, and
// clips reduced to what a test compares (name and files relative to the tree).
#include <cstdint>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "Browse/CardClip.h"
#include "support/TempTree.h"

namespace igd::test {

struct ClipView {
    std::string name;
    std::vector<std::string> files;
    bool operator==(const ClipView&) const = default;
};

inline void MakeFiles(TempTree& tree, const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        tree.MakeFile(path);
}

inline std::vector<ClipView> View(const TempTree& tree, const std::vector<Browse::CardClip>& clips) {
    const std::string root = tree.NativePath() + "/";
    std::vector<ClipView> views;
    for (const Browse::CardClip& clip : clips) {
        ClipView view{Fnd::ToUTF8(clip.name), {}};
        for (const Fnd::WString& file : clip.files) {
            std::string path = Fnd::ToUTF8(file);
            if (path.rfind(root, 0) == 0)
                path.erase(0, root.size());
            view.files.push_back(path);
        }
        views.push_back(std::move(view));
    }
    return views;
}

// A P2 clip XML with the links of a spanned shot; empty ids leave the link out.
inline std::string P2ClipXml(const std::string& globalId, const std::string& top = {},
                             const std::string& next = {}, const std::string& previous = {}, int offset = 0,
                             const std::string& userName = {}) {
    std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<P2Main><ClipContent><GlobalClipID>" +
                      globalId + "</GlobalClipID>";
    if (!userName.empty())
        xml += "<ClipMetadata><UserClipName>" + userName + "</UserClipName></ClipMetadata>";
    if (!top.empty()) {
        xml += "<Relation><OffsetInShot>" + std::to_string(offset) +
               "</OffsetInShot><Connection><Top><GlobalClipID>" + top + "</GlobalClipID></Top>";
        if (!previous.empty())
            xml += "<Previous><GlobalClipID>" + previous + "</GlobalClipID></Previous>";
        if (!next.empty())
            xml += "<Next><GlobalClipID>" + next + "</GlobalClipID></Next>";
        xml += "</Connection></Relation>";
    }
    return xml + "</ClipContent></P2Main>\n";
}

// A recording of one P2 camera that starts on first (clip 000A01) and continues on second (clip
// 000B01, a different id as on a real second card). Files hold their own names, so that a copy
// can be told from its neighbour. Paths are relative to the tree and name the card roots.
inline void MakeSpannedP2Cards(TempTree& tree, const std::string& first, const std::string& second) {
    for (const auto& [card, id, xml] : {std::tuple{first, "000A01", P2ClipXml("G1", "G1", "G2", {}, 0)},
                                        std::tuple{second, "000B01", P2ClipXml("G2", "G1", {}, "G1", 300)}}) {
        const std::string contents = card + "/CONTENTS/";
        tree.MakeFile(contents + "CLIP/" + id + ".XML", xml);
        for (const std::string& file :
             {"VIDEO/" + std::string(id) + ".MXF", "AUDIO/" + std::string(id) + "00.MXF"})
            tree.MakeFile(contents + file, contents + file);
    }
}

// The bytes of an AVCHD playlist whose play items name the streams; an item marked true joins
// the one before it without a break.
inline std::string MplBytes(const std::vector<std::pair<std::string, bool>>& items) {
    auto put = [](std::string& out, std::uint32_t value, int width) {
        for (int i = width - 1; i >= 0; --i)
            out.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
    };
    std::string bytes = "MPLS0200";
    put(bytes, 40, 4); // play list
    put(bytes, 0, 4);  // marks
    put(bytes, 0, 4);  // extension data
    bytes.resize(40, '\0');
    std::string list;
    put(list, 0, 2);
    put(list, static_cast<std::uint32_t>(items.size()), 2);
    put(list, 0, 2);
    for (const auto& [stream, continues] : items) {
        std::string item = stream + "M2TS";
        put(item, continues ? 5 : 1, 2);
        item.resize(item.size() + 8, '\0'); // times the gathering never reads
        put(list, static_cast<std::uint32_t>(item.size()), 2);
        list += item;
    }
    put(bytes, static_cast<std::uint32_t>(list.size()), 4);
    return bytes + list;
}

} // namespace igd::test
