#include "Mid/KilnInstalled.h"

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <string>
#include <string_view>

namespace Mid {
namespace {

bool FindOnPath(std::string_view program) {
    const char* path = std::getenv("PATH");
    std::string_view folders = path != nullptr ? path : "";
    while (!folders.empty()) {
        const auto colon = folders.find(':');
        const std::string_view folder = folders.substr(0, colon);
        // An empty entry means the current folder, which a host never means for its tools.
        if (!folder.empty()) {
            const std::string candidate = std::string(folder) + "/" + std::string(program);
            if (::access(candidate.c_str(), X_OK) == 0)
                return true;
        }
        if (colon == std::string_view::npos)
            break;
        folders.remove_prefix(colon + 1);
    }
    return false;
}

// -1: not decided yet.
std::atomic<int> installed{-1};

} // namespace

bool IsKilnInstalled() {
    int known = installed.load(std::memory_order_acquire);
    if (known < 0) {
        known = FindOnPath("ffmpeg") ? 1 : 0;
        int expected = -1;
        // A host that decided meanwhile wins over the lookup.
        if (!installed.compare_exchange_strong(expected, known, std::memory_order_acq_rel))
            known = expected;
    }
    return known == 1;
}

void SetKilnInstalled(bool value) {
    installed.store(value ? 1 : 0, std::memory_order_release);
}

} // namespace Mid
