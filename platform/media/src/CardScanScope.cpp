#include "Browse/CardScanScope.h"

#include "Browse/CardProvider.h"

namespace Browse {

struct CardScanScope::Scans {
    std::map<std::pair<const CardProvider*, Fnd::WString>, ClipList> clips;
};

namespace {
thread_local CardScanScope::Scans* t_active = nullptr;
}

CardScanScope::CardScanScope() {
    if (!t_active) {
        owned_ = std::make_unique<Scans>();
        t_active = owned_.get();
    }
}

CardScanScope::~CardScanScope() {
    if (owned_)
        t_active = nullptr;
}

CardScanScope::ClipList CardScanScope::Clips(const CardProvider& provider, const Fnd::WString& cardRoot) {
    if (!t_active)
        return std::make_shared<const std::vector<CardClip>>(provider.FindClips(cardRoot));
    auto key = std::make_pair(&provider, cardRoot);
    auto found = t_active->clips.find(key);
    if (found == t_active->clips.end())
        found = t_active->clips
                    .emplace(std::move(key),
                             std::make_shared<const std::vector<CardClip>>(provider.FindClips(cardRoot)))
                    .first;
    return found->second;
}

} // namespace Browse
