#include "Browse/CardScanScope.h"

#include <algorithm>
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

// A root spelled with or without a trailing separator names the same card.
card::fs::path NormalRoot(const Fnd::WString& root) {
    card::fs::path path = card::ToPath(root).lexically_normal();
    if (path.filename().empty() && path.has_relative_path())
        path = path.parent_path();
    return path;
}

} // namespace

struct CardScanScope::Scans {
    card::ListingMemo listings;
    std::vector<card::fs::path> openCards;
    std::map<std::pair<const CardProvider*, Fnd::WString>, CardScan> cards;
    std::map<std::tuple<const ProviderWrapper*, Fnd::WString, std::set<std::string>>,
             std::shared_ptr<const Content>>
        contents;

    std::vector<Fnd::WString> OpenBeside(const Fnd::WString& cardRoot) const {
        if (openCards.empty())
            return {};
        const card::fs::path root = NormalRoot(cardRoot);
        if (std::find(openCards.begin(), openCards.end(), root) == openCards.end())
            return {};
        std::vector<Fnd::WString> beside;
        for (const card::fs::path& open : openCards)
            if (open != root && open.parent_path() == root.parent_path())
                beside.push_back(card::ToWide(open));
        return beside;
    }

    CardScan& Card(const CardProvider& provider, const Fnd::WString& cardRoot) {
        auto key = std::make_pair(&provider, cardRoot);
        auto found = cards.find(key);
        if (found == cards.end()) {
            auto clips = std::make_shared<const std::vector<CardClip>>(
                provider.FindClipsAmong(cardRoot, OpenBeside(cardRoot)));
            found = cards.emplace(std::move(key), CardScan{std::move(clips), {}, false}).first;
        }
        return found->second;
    }
};

namespace {

thread_local CardScanScope::Scans* t_active = nullptr;

CardScan FreshScan(const CardProvider& provider, const Fnd::WString& cardRoot) {
    return {std::make_shared<const std::vector<CardClip>>(provider.FindClips(cardRoot)), {}, false};
}

} // namespace

CardScanScope::CardScanScope() {
    if (!t_active) {
        owned_ = std::make_unique<Scans>();
        t_active = owned_.get();
    }
}

CardScanScope::CardScanScope(const std::vector<Fnd::WString>& cardsOpenTogether)
    : owned_(std::make_unique<Scans>()), outer_(t_active) {
    for (const Fnd::WString& root : cardsOpenTogether) {
        card::fs::path normal = NormalRoot(root);
        if (std::find(owned_->openCards.begin(), owned_->openCards.end(), normal) == owned_->openCards.end())
            owned_->openCards.push_back(std::move(normal));
    }
    t_active = owned_.get();
}

CardScanScope::~CardScanScope() {
    if (owned_)
        t_active = outer_;
}

CardScanScope::ClipList CardScanScope::Clips(const CardProvider& provider, const Fnd::WString& cardRoot) {
    if (!t_active)
        return FreshScan(provider, cardRoot).clips;
    return t_active->Card(provider, cardRoot).clips;
}

std::vector<Fnd::WString> CardScanScope::CardsOpenBeside(const Fnd::WString& cardRoot) {
    return t_active ? t_active->OpenBeside(cardRoot) : std::vector<Fnd::WString>{};
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
