#pragma once
#include "Browse/ProviderWrapper.h"
#include "Fnd/WString.h"

namespace Browse {

class FileListForCopy {
public:
    // The provider that presents the path, the directory its content is read from, and the
    // path's entry name there. A file of a card clip goes to its card provider with the card
    // root; any other existing file or folder to the plain directory provider with its parent.
    // A path that does not exist answers false with provider null.
    static bool GetProviderAndRootFromPath(const Fnd::WString& path, const ProviderWrapper*& provider,
                                           Fnd::WString& root, Fnd::WString& name);
};

} // namespace Browse
