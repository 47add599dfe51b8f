#include "CardsCommand.h"

#include <iostream>
#include <memory>
#include <string>

#include "Browse/ProviderRegistry.h"
#include "Fnd/PathUtils.h"
#include "OutputFormat.h"

namespace igd {
namespace {

struct CardsOptions {
    std::string path;
    bool json = false;
};

// The family's own short name: what follows "Provider" in its identification.
std::string FamilyName(const std::string& identification) {
    const std::size_t at = identification.rfind("Provider");
    return at == std::string::npos ? identification : identification.substr(at + 8);
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
    const Fnd::WString path = Fnd::PathUtils::ToNormalizedPath(Fnd::FromUTF8(options.path));
    if (!Fnd::PathUtils::ExistsOnDisk(path, true)) {
        std::cerr << "igd cards: " << options.path << " is not a folder\n";
        return 2;
    }
    const std::vector<Browse::CardClip> clips = Browse::ProviderRegistry::FindCardClips(path);
    if (options.json)
        PrintJson(clips);
    else if (clips.empty())
        std::cout << "No camera card structure in " << Fnd::ToUTF8(path) << "\n";
    else
        PrintText(clips);
    return 0;
}

} // namespace

void RegisterCardsCommand(CLI::App& app, CommandTable& table) {
    auto options = std::make_shared<CardsOptions>();
    CLI::App* cards =
        app.add_subcommand("cards", "list the clips of the camera cards at a path, with their files");
    cards->add_option("path", options->path, "a card's root folder")->required();
    cards->add_flag("--json", options->json, "print the clips as JSON");
    table.Add(cards, [options] { return RunCards(*options); });
}

} // namespace igd
