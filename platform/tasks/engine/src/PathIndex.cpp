#include "PathIndex.h"

namespace QL::Engine {

void PathIndex::Add(const std::vector<Fnd::WString>& paths) {
    std::lock_guard lock(mutex_);
    for (const Fnd::WString& path : paths)
        ++counts_[path];
}

void PathIndex::Remove(const std::vector<Fnd::WString>& paths) {
    std::lock_guard lock(mutex_);
    for (const Fnd::WString& path : paths) {
        const auto found = counts_.find(path);
        if (found != counts_.end() && --found->second == 0)
            counts_.erase(found);
    }
}

bool PathIndex::Contains(const Fnd::WString& path) const {
    std::lock_guard lock(mutex_);
    return counts_.find(path) != counts_.end();
}

} // namespace QL::Engine
