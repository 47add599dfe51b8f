#pragma once
#include <mutex>
#include <unordered_map>
#include <vector>

#include "Fnd/WString.h"

namespace QL::Engine {

// The targets that waiting and running tasks will write, counted, so that the library's question
// "will a task create this path?" is one lookup however long the queue. Safe from any thread.
class PathIndex {
public:
    void Add(const std::vector<Fnd::WString>& paths);
    void Remove(const std::vector<Fnd::WString>& paths);
    bool Contains(const Fnd::WString& path) const;

private:
    mutable std::mutex mutex_;
    std::unordered_map<Fnd::WString, std::uint32_t> counts_;
};

} // namespace QL::Engine
