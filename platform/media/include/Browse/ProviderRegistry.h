#pragma once
#include <vector>

#include "Browse/CardClip.h"
#include "Browse/CardProvider.h"
#include "Browse/PlainDirectoryProvider.h"

namespace Browse {

// The providers of this installation. They live for the whole process; callers keep plain
// pointers.
class ProviderRegistry {
public:
    static const PlainDirectoryProvider& PlainDirectory();
    // One per card family, in the order they are tried.
    static const std::vector<const CardProvider*>& CardProviders();

    // Every clip of every family found at the card root: a card may hold several structures.
    static std::vector<CardClip> FindCardClips(const Fnd::WString& cardRoot);
    // The clip that holds the file, with the provider and card root that found it (the card a
    // joined recording starts on, for a part on another card); false when the file belongs to no
    // card clip.
    static bool FindClipOfFile(const Fnd::WString& filePath, const CardProvider*& provider,
                               Fnd::WString& cardRoot, CardClip& clip);
};

} // namespace Browse
