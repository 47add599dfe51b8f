#pragma once
// While a scope is alive on a thread, each card root is scanned once per provider and the
// clips reused: gathering asks a provider about a card several times for every item, and a card
// does not change in the middle of one gathering. Scopes nest; the outermost one owns the
// scans.
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
    ~CardScanScope();
    CardScanScope(const CardScanScope&) = delete;
    CardScanScope& operator=(const CardScanScope&) = delete;

    using ClipList = std::shared_ptr<const std::vector<CardClip>>;
    // The clips of the provider at the card root: from the outermost live scope when one is open,
    // else a fresh scan.
    static ClipList Clips(const CardProvider& provider, const Fnd::WString& cardRoot);

    struct Scans;

private:
    std::unique_ptr<Scans> owned_;
};

} // namespace Browse
