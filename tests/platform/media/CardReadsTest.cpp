// Recognising a card must stay cheap on a card of hundreds of gigabytes: only the card's index,
// playlist and clip files may be opened, never the media. The kernel reports every open in the
// card's folders, so the test sees exactly what the providers touched.
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <string>

#include "Browse/ProviderRegistry.h"
#include "CardTrees.h"

namespace igd::test {
namespace {

// Every file opened in the watched folders while it lives.
class OpenWatch {
public:
    explicit OpenWatch(const std::string& root) : fd_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        if (fd_ < 0)
            return;
        Watch(root);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
            if (entry.is_directory())
                Watch(entry.path().string());
    }
    ~OpenWatch() {
        if (fd_ >= 0)
            ::close(fd_);
    }
    bool Ok() const { return fd_ >= 0; }

    std::set<std::string> OpenedFiles() {
        std::set<std::string> opened;
        alignas(inotify_event) char buffer[64 * 1024];
        for (ssize_t got; (got = ::read(fd_, buffer, sizeof buffer)) > 0;) {
            for (char* at = buffer; at < buffer + got;) {
                const auto* event = reinterpret_cast<const inotify_event*>(at);
                if ((event->mask & IN_OPEN) && !(event->mask & IN_ISDIR) && event->len > 0)
                    opened.insert(event->name);
                at += sizeof(inotify_event) + event->len;
            }
        }
        return opened;
    }

private:
    void Watch(const std::string& folder) { ::inotify_add_watch(fd_, folder.c_str(), IN_OPEN); }

    int fd_;
};

TEST(CardReadsTest, RecognisingEveryStructureOpensOnlyIndexPlaylistAndClipFiles) {
    TempTree tree;
    const std::string p2 = "CARD/CONTENTS/";
    const std::string m4 = "CARD/PRIVATE/M4ROOT/";
    const std::string bd = "CARD/PRIVATE/AVCHD/BDMV/";
    const std::string xd = "CARD/XDROOT/";
    tree.MakeFile(p2 + "CLIP/000AB1.XML", P2ClipXml("G1"));
    tree.MakeFile(bd + "PLAYLIST/00000.MPL", MplBytes({{"00000", false}}));
    tree.MakeFile(xd + "Take/T0001.SMI", "<smil><video src=\"../Clip/C0001.MXF\"/></smil>");
    tree.MakeFile(xd + "Edit/E0001.SMI", "<smil><video src=\"../Clip/C0001.MXF\"/></smil>");
    MakeFiles(tree, {p2 + "VIDEO/000AB1.MXF", p2 + "AUDIO/000AB100.MXF", p2 + "ICON/000AB1.BMP",
                     m4 + "MEDIAPRO.XML", m4 + "CLIP/C0001.MP4", m4 + "CLIP/C0001M01.XML",
                     m4 + "THMBNL/C0001T01.JPG", bd + "INDEX.BDM", bd + "MOVIEOBJ.BDM",
                     bd + "STREAM/00000.MTS", bd + "CLIPINF/00000.CPI", "CARD/DCIM/100GOPRO/GH010001.MP4",
                     "CARD/DCIM/100GOPRO/GH010001.THM", xd + "MEDIAPRO.XML", xd + "DISCMETA.XML",
                     xd + "Clip/C0001.MXF", xd + "Clip/C0001M01.XML", xd + "Local/C0001C01.SMI"});
    OpenWatch watch(tree.NativePath() + "/CARD");
    if (!watch.Ok())
        GTEST_SKIP() << "inotify is not available here";

    // Every structure of the card is found, in the registry's order.
    std::vector<std::string> families;
    for (const Browse::CardClip& clip : Browse::ProviderRegistry::FindCardClips(tree.Path("CARD")))
        families.push_back(clip.family.substr(clip.family.rfind("Provider") + 8));
    EXPECT_EQ(families, (std::vector<std::string>{"P2", "XAVCS", "AVCHD", "GoPro", "XDCAM"}));

    // The take and edit lists say which clips they name only by their text.
    const std::set<std::string> allowed{"000AB1.XML", "MEDIAPRO.XML", "C0001M01.XML",
                                        "00000.MPL",  "INDEX.BDM",    "MOVIEOBJ.BDM",
                                        "00000.CPI",  "T0001.SMI",    "E0001.SMI"};
    const std::set<std::string> opened = watch.OpenedFiles();
    // P2 clips come from their XML: seeing it opened shows the watch works.
    EXPECT_TRUE(opened.count("000AB1.XML"));
    for (const std::string& file : opened)
        EXPECT_TRUE(allowed.count(file)) << "opened " << file;
}

} // namespace
} // namespace igd::test
