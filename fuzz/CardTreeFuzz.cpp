// The provider registry over one card of each family whose index or clip file is the input, as
// `igd cards` and gathering see a card: the first byte picks the file, the rest is its content.
// Every other file of the card is empty, so what a provider makes of the card comes from the
// input alone.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "Browse/CardProvider.h"
#include "Browse/ProviderRegistry.h"
#include "FuzzScratch.h"

namespace {

struct CardFile {
    const char* root;
    const char* input;
    std::vector<const char*> beside;
};

// Families whose files are only looked for, never read (XAVC S and XDCAM MEDIAPRO.XML, Canon
// INDEX.MIF and clip XML), are here too: a provider that starts reading one is fuzzed at once.
const std::vector<CardFile>& CardFiles() {
    static const std::vector<CardFile> files{
        {"p2", "CONTENTS/CLIP/000001.XML", {"CONTENTS/VIDEO/000001.MXF", "CONTENTS/AUDIO/00000100.MXF"}},
        {"avchd", "PRIVATE/AVCHD/BDMV/PLAYLIST/00000.MPL",
         {"PRIVATE/AVCHD/BDMV/INDEX.BDM", "PRIVATE/AVCHD/BDMV/STREAM/00000.MTS",
          "PRIVATE/AVCHD/BDMV/STREAM/00001.MTS", "PRIVATE/AVCHD/BDMV/CLIPINF/00000.CPI"}},
        {"xdcam-take", "XDROOT/Take/T0001.SMI",
         {"XDROOT/MEDIAPRO.XML", "XDROOT/DISCMETA.XML", "XDROOT/Clip/C0001.MXF", "XDROOT/Clip/C0002.MXF"}},
        {"xdcam-edit", "XDROOT/Edit/E0001.SMI",
         {"XDROOT/MEDIAPRO.XML", "XDROOT/DISCMETA.XML", "XDROOT/Clip/C0001.MXF", "XDROOT/Clip/C0002.MXF"}},
        {"xdcam-index", "XDROOT/MEDIAPRO.XML", {"XDROOT/DISCMETA.XML", "XDROOT/Clip/C0001.MXF"}},
        {"xavcs", "PRIVATE/M4ROOT/MEDIAPRO.XML", {"PRIVATE/M4ROOT/CLIP/C0001.MP4"}},
        {"xdcamex", "BPAV/MEDIAPRO.XML", {"BPAV/CLPR/ABCD0001_01/ABCD0001_01.MP4"}},
        {"canonxf", "CONTENTS/CLIPS001/INDEX.MIF", {"CONTENTS/CLIPS001/AA0001/AA000101.MXF"}},
        {"canonxfavc", "CONTENTS/CLIPS001/A001C001_190101AB.XML",
         {"CONTENTS/CLIPS001/INDEX.MIF", "CONTENTS/CLIPS001/A001C001_190101AB.MXF"}},
    };
    return files;
}

bool MakeCards() {
    for (const CardFile& card : CardFiles())
        for (const char* file : card.beside)
            igd::fuzz::WriteScratchFile(std::string(card.root) + "/" + file, "");
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool made = MakeCards();
    (void)made;
    if (size == 0)
        return 0;
    const CardFile& card = CardFiles()[data[0] % CardFiles().size()];
    const auto input = igd::fuzz::WriteScratchFile(std::string(card.root) + "/" + card.input, data + 1, size - 1);

    const Fnd::WString root = Fnd::FromUTF8((igd::fuzz::ScratchFolder() / card.root).string());
    for (const Browse::CardClip& clip : Browse::ProviderRegistry::FindCardClips(root))
        if (clip.files.empty())
            std::abort();

    const Browse::CardProvider* provider = nullptr;
    Fnd::WString cardRoot;
    Browse::CardClip clip;
    Browse::ProviderRegistry::FindClipOfFile(Fnd::FromUTF8(input.string()), provider, cardRoot, clip);
    return 0;
}
