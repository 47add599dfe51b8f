#include "Browse/CardScanScope.h"

#include <set>
#include <tuple>
#include <unordered_map>

#include "Browse/CardProvider.h"
#include "CardFolder.h"
#include "ScopedScans.h"

namespace Browse {

namespace {

// One card as one provider scanned it, with its files indexed on first lookup.
struct CardScan {
    CardScanScope::ClipList clips;
    std::unordered_map<std::string, std::size_t> clipOfFile;
    bool indexed = false;

    void Index() {
        if (indexed)
            return;
        indexed = true;
        for (std::size_t i = 0; i < clips->size(); ++i)
            for (const Fnd::WString& file : (*clips)[i].files)
                // A file listed by two clips belongs to the first, as a search in card order finds.
                clipOfFile.emplace(card::ToPath(file).lexically_normal().native(), i);
    }
};

CardScan FreshScan(const CardProvider& provider, const Fnd::WString& cardRoot) {
    return {std::make_shared<const std::vector<CardClip>>(provider.FindClips(cardRoot)), {}, false};
}

} // namespace

struct CardScanScope::Scans {
    std::map<std::pair<const CardProvider*, Fnd::WString>, CardScan> cards;
    std::map<std::tuple<const ProviderWrapper*, Fnd::WString, std::set<std::string>>,
             std::shared_ptr<const Content>>
        contents;

    CardScan& Card(const CardProvider& provider, const Fnd::WString& cardRoot) {
        auto key = std::make_pair(&provider, cardRoot);
        auto found = cards.find(key);
        if (found == cards.end())
            found = cards.emplace(std::move(key), FreshScan(provider, cardRoot)).first;
        return found->second;
    }
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
        return FreshScan(provider, cardRoot).clips;
    return t_active->Card(provider, cardRoot).clips;
}

namespace scans {

std::optional<CardClip> ClipOfFile(const CardProvider& provider, const Fnd::WString& cardRoot,
                                   const std::string& normalFile) {
    CardScan fresh;
    CardScan& scan = t_active ? t_active->Card(provider, cardRoot) : (fresh = FreshScan(provider, cardRoot));
    scan.Index();
    auto found = scan.clipOfFile.find(normalFile);
    if (found == scan.clipOfFile.end())
        return std::nullopt;
    return (*scan.clips)[found->second];
}

std::shared_ptr<const Content> ContentOf(const ProviderWrapper& provider, const Fnd::WString& directory,
                                         const std::set<std::string>& fields,
                                         const std::function<Content()>& make) {
    if (!t_active)
        return std::make_shared<const Content>(make());
    auto key = std::make_tuple(&provider, directory, fields);
    auto found = t_active->contents.find(key);
    if (found == t_active->contents.end())
        found = t_active->contents.emplace(std::move(key), std::make_shared<const Content>(make())).first;
    return found->second;
}

} // namespace scans

} // namespace Browse
