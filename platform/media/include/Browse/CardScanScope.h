#pragma once
// While a scope is alive on a thread, each card root is scanned once per provider and the
// clips reused: gathering asks a provider about a card several times for every item, and a card
// does not change in the middle of one gathering. Scopes nest; the outermost one owns the
// scans.
//
// A scope also says which cards the user opened together. A recording longer than one card
// continues on the next, and its parts make one clip only when every card it lies on is open.
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Browse/CardClip.h"

namespace Browse {

class CardProvider;

class CardScanScope {
public:
    CardScanScope();
    // The card roots open together. Only cards in the same folder are joined: an ingest copies
    // paths relative to the folder that holds the card, and a clip must never reach outside it. A
    // scope that names cards starts scans of its own even inside another scope, so that no clip
    // list made without them is reused; it ends them when it ends.
    explicit CardScanScope(const std::vector<Fnd::WString>& cardsOpenTogether);
    ~CardScanScope();
    CardScanScope(const CardScanScope&) = delete;
    CardScanScope& operator=(const CardScanScope&) = delete;

    using ClipList = std::shared_ptr<const std::vector<CardClip>>;
    // The clips of the provider at the card root: from the outermost live scope when one is open,
    // else a fresh scan of that card alone.
    static ClipList Clips(const CardProvider& provider, const Fnd::WString& cardRoot);
    // The cards of the live scope open together with cardRoot and lying beside it, in the order
    // they were named; none when cardRoot itself is not open or no scope is.
    static std::vector<Fnd::WString> CardsOpenBeside(const Fnd::WString& cardRoot);

    struct Scans;

private:
    std::unique_ptr<Scans> owned_;
    Scans* outer_ = nullptr;
};

} // namespace Browse
