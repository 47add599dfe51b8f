#include "Browse/RefusedCardFiles.h"

#include <mutex>
#include <set>
#include <utility>

namespace Browse {
namespace {

struct Refusals {
    std::mutex mutex;
    std::vector<RefusedCardFile> files;
    std::set<Fnd::WString> paths;
};

Refusals& TheRefusals() {
    static Refusals refusals;
    return refusals;
}

} // namespace

void RefusedCardFiles::Report(const Fnd::WString& path, std::string reason) {
    Refusals& refusals = TheRefusals();
    std::lock_guard<std::mutex> lock(refusals.mutex);
    // A card is scanned again by each gathering that looks at it; a file is refused once.
    if (refusals.paths.insert(path).second)
        refusals.files.push_back({path, std::move(reason)});
}

std::vector<RefusedCardFile> RefusedCardFiles::Take() {
    Refusals& refusals = TheRefusals();
    std::lock_guard<std::mutex> lock(refusals.mutex);
    refusals.paths.clear();
    return std::exchange(refusals.files, {});
}

} // namespace Browse
