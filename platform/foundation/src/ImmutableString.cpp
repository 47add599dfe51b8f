#include "fluxcore/ImmutableString.h"

#include <mutex>
#include <unordered_set>

namespace fluxcore::utility {

namespace {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const noexcept {
        return std::hash<std::string_view>()(text);
    }
};

// The nodes of an unordered_set never move, so the address of an interned text stays valid for
// as long as the table lives, which is forever.
class InternTable {
public:
    const std::string* Intern(std::string_view text) {
        std::lock_guard lock(mutex_);
        auto found = texts_.find(text);
        if (found == texts_.end())
            found = texts_.emplace(text).first;
        return &*found;
    }

private:
    std::mutex mutex_;
    std::unordered_set<std::string, TextHash, std::equal_to<>> texts_;
};

// Created on first use, so static initialisers of other files can intern, and never destroyed,
// so static destructors and other threads can still use their strings at exit.
InternTable& Table() {
    static InternTable* table = new InternTable;
    return *table;
}

const std::string* EmptyText() {
    static const std::string* empty = Table().Intern({});
    return empty;
}

} // namespace

ImmutableString::ImmutableString() : text_(EmptyText()) {}

ImmutableString::ImmutableString(std::string_view text) : text_(Table().Intern(text)) {}

} // namespace fluxcore::utility
