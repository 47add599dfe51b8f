#include "CardsCommand.h"

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "Browse/CardScanScope.h"
#include "Browse/ProviderRegistry.h"
#include "Browse/RefusedCardFiles.h"
#include "ExitCodes.h"
#include "Fnd/PathUtils.h"
#include "OutputFormat.h"

namespace igd {
namespace {

struct CardsOptions {
    std::vector<std::string> paths;
    bool json = false;
};

// The family's own short name: what follows "Provider" in its identification.
std::string FamilyName(const std::string& identification) {
    const std::size_t at = identification.rfind("Provider");
    return at == std::string::npos ? identification : identification.substr(at + 8);
}

// Whether a clip of the cards lists a file below root.
bool HoldsFileOfOthers(const Fnd::WString& root, const std::vector<std::vector<Browse::CardClip>>& cards) {
    const Fnd::WString prefix = root.ends_with(u'/') ? root : root + u'/';
    for (const std::vector<Browse::CardClip>& clips : cards)
        for (const Browse::CardClip& clip : clips)
            for (const Fnd::WString& file : clip.files)
                if (file.starts_with(prefix))
                    return true;
    return false;
}

void PrintText(const std::vector<Browse::CardClip>& clips) {
    for (const Browse::CardClip& clip : clips) {
        std::cout << Fnd::ToUTF8(clip.name) << "  (" << FamilyName(clip.family) << ", " << clip.files.size()
                  << (clip.files.size() == 1 ? " file" : " files") << ")\n";
        for (const Fnd::WString& file : clip.files)
            std::cout << "    " << Fnd::ToUTF8(file) << "\n";
    }
}

void PrintJson(const std::vector<Browse::CardClip>& clips) {
    std::cout << "[";
    for (std::size_t i = 0; i < clips.size(); ++i) {
        const Browse::CardClip& clip = clips[i];
        std::cout << (i ? ",\n " : "\n ") << "{\"name\": " << JsonString(Fnd::ToUTF8(clip.name))
                  << ", \"family\": " << JsonString(FamilyName(clip.family))
                  << ", \"provider\": " << JsonString(clip.family)
                  << ", \"media\": " << JsonString(Fnd::ToUTF8(clip.mediaPath)) << ", \"files\": [";
        for (std::size_t f = 0; f < clip.files.size(); ++f)
            std::cout << (f ? ", " : "") << JsonString(Fnd::ToUTF8(clip.files[f]));
        std::cout << "]}";
    }
    std::cout << (clips.empty() ? "]\n" : "\n]\n");
}

int RunCards(const CardsOptions& options) {
    std::vector<Fnd::WString> roots;
    for (const std::string& given : options.paths) {
        const Fnd::WString path = Fnd::PathUtils::ToNormalizedPath(Fnd::FromUTF8(given));
        if (!Fnd::PathUtils::ExistsOnDisk(path, true)) {
            std::cerr << "igd cards: " << given << " is not a folder\n";
            return kExitBadInput;
        }
        roots.push_back(path);
    }
    // The cards named are open together: a recording that continues on a card beside its first is
    // listed once, as a clip of the card it starts on.
    const Browse::CardScanScope scans(roots);
    std::vector<std::vector<Browse::CardClip>> clipsOfRoot;
    for (const Fnd::WString& root : roots)
        clipsOfRoot.push_back(Browse::ProviderRegistry::FindCardClips(root));
    const int exitCode = ReportRefusedCardFiles("igd cards") ? kExitFailure : kExitSuccess;
    if (options.json) {
        std::vector<Browse::CardClip> all;
        for (const std::vector<Browse::CardClip>& clips : clipsOfRoot)
            all.insert(all.end(), clips.begin(), clips.end());
        PrintJson(all);
        return exitCode;
    }
    for (std::size_t i = 0; i < roots.size(); ++i) {
        if (roots.size() > 1)
            std::cout << Fnd::ToUTF8(roots[i]) << ":\n";
        if (!clipsOfRoot[i].empty())
            PrintText(clipsOfRoot[i]);
        else if (HoldsFileOfOthers(roots[i], clipsOfRoot))
            std::cout << "No clips of its own in " << Fnd::ToUTF8(roots[i])
                      << ": its recordings continue those of a card beside it\n";
        else
            std::cout << "No camera card structure in " << Fnd::ToUTF8(roots[i]) << "\n";
    }
    return exitCode;
}

} // namespace

bool ReportRefusedCardFiles(const char* command) {
    const std::vector<Browse::RefusedCardFile> refused = Browse::RefusedCardFiles::Take();
    for (const Browse::RefusedCardFile& file : refused)
        std::cerr << command << ": " << Fnd::ToUTF8(file.path) << " was refused: "
                  << file.reason << "\n";
    return !refused.empty();
}

void RegisterCardsCommand(CLI::App& app, CommandTable& table) {
    auto options = std::make_shared<CardsOptions>();
    CLI::App* cards =
        app.add_subcommand("cards", "list the clips of the camera cards at the paths, with their files");
    cards->add_option("path", options->paths, "card root folders; cards beside each other are open together")
        ->required();
    cards->add_flag("--json", options->json, "print the clips as JSON");
    table.Add(cards, [options] { return RunCards(*options); });
}

} // namespace igd
