// The task service asks the card providers: only they know a card's structures.
#include "Browse/ProviderRegistry.h"
#include "QL/Utilities.h"

namespace QL {

bool Utilities::IsFolderBasedClip(const Fnd::WString& path) {
    const Browse::CardProvider* provider = nullptr;
    Fnd::WString cardRoot;
    Browse::CardClip clip;
    return Browse::ProviderRegistry::FindClipOfFile(path, provider, cardRoot, clip);
}

} // namespace QL
