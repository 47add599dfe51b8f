#pragma once
// The card files a provider would not read (a clip file too large, malformed or hostile), so
// that what the user asked for is not silently shortened: the clips they describe are left out,
// the card's other clips are listed, and the host names each refused file with its reason.
#include <string>
#include <vector>

#include "Fnd/WString.h"

namespace Browse {

struct RefusedCardFile {
    Fnd::WString path;
    std::string reason;
};

class RefusedCardFiles {
public:
    // Kept once per path, in the order reported; safe from any thread.
    static void Report(const Fnd::WString& path, std::string reason);
    // The files reported since the last call, emptying the list.
    static std::vector<RefusedCardFile> Take();
};

} // namespace Browse
