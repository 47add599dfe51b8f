#pragma once
// What the live CardScanScope keeps beyond the clip lists: a file-to-clip index of each card scan
// and the content a provider answered for a directory. Gathering asks both for every item, so
// without them gathering a card grows with the square of its clips.
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "Browse/CardClip.h"
#include "Browse/CardProvider.h"
#include "Browse/ProviderWrapper.h"

namespace Browse::scans {

// The clip of the provider's scan at cardRoot that holds the file; the file is given in
// lexically normal form. Without a live scope the card is scanned for this one question.
std::optional<CardClip> ClipOfFile(const CardProvider& provider, const Fnd::WString& cardRoot,
                                   const std::string& normalFile);

// The content the provider answers for directory and fields: made once per live scope, or made
// afresh each time without one.
std::shared_ptr<const Content> ContentOf(const ProviderWrapper& provider, const Fnd::WString& directory,
                                         const std::set<std::string>& fields,
                                         const std::function<Content()>& make);

} // namespace Browse::scans
