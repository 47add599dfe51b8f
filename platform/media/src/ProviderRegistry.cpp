#include "Browse/ProviderRegistry.h"

#include <memory>

#include "Browse/CardScanScope.h"
#include "CardFamilies.h"
#include "CardFolder.h"
#include "ScopedScans.h"

namespace Browse {
namespace {

std::vector<std::unique_ptr<CardProvider>> MakeAll() {
    std::vector<std::unique_ptr<CardProvider>> all;
    for (auto make : {MakeP2Provider, MakeXdcamExProvider, MakeXavcSProvider, MakeAvchdProvider,
                      MakeGoProProvider, MakeXdcamProvider, MakeCanonXfProvider, MakeCanonXfAvcProvider,
                      MakeRedProvider, MakeArriRawProvider, MakeDjiProvider}) {
        if (std::unique_ptr<CardProvider> provider = make())
            all.push_back(std::move(provider));
    }
    return all;
}

} // namespace

const PlainDirectoryProvider& ProviderRegistry::PlainDirectory() {
    static const PlainDirectoryProvider provider;
    return provider;
}

const std::vector<const CardProvider*>& ProviderRegistry::CardProviders() {
    static const std::vector<std::unique_ptr<CardProvider>> owned = MakeAll();
    static const std::vector<const CardProvider*> view = [] {
        std::vector<const CardProvider*> pointers;
        for (const auto& provider : owned)
            pointers.push_back(provider.get());
        return pointers;
    }();
    return view;
}

std::vector<CardClip> ProviderRegistry::FindCardClips(const Fnd::WString& cardRoot) {
    std::vector<CardClip> all;
    for (const CardProvider* provider : CardProviders()) {
        const CardScanScope::ClipList clips = CardScanScope::Clips(*provider, cardRoot);
        all.insert(all.end(), clips->begin(), clips->end());
    }
    return all;
}

bool ProviderRegistry::FindClipOfFile(const Fnd::WString& filePath, const CardProvider*& provider,
                                      Fnd::WString& cardRoot, CardClip& clip) {
    const card::fs::path file = card::ToPath(filePath).lexically_normal();
    for (const CardProvider* candidate : CardProviders()) {
        const Fnd::WString root = candidate->CardRootForFile(card::ToWide(file));
        if (root.empty())
            continue;
        auto foundOn = [&](const Fnd::WString& at) {
            std::optional<CardClip> found = scans::ClipOfFile(*candidate, at, file.native());
            if (found) {
                provider = candidate;
                cardRoot = at;
                clip = std::move(*found);
            }
            return found.has_value();
        };
        if (foundOn(root))
            return true;
        // A part of a recording that started on another open card belongs to that card's clip.
        for (const Fnd::WString& beside : CardScanScope::CardsOpenBeside(root))
            if (foundOn(beside))
                return true;
    }
    return false;
}

} // namespace Browse
