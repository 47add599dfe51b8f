#pragma once
// What every card family has alike, so that each provider says only what is its family's own:
// how its card is recognised, which files make one of its clips and what the clip is called.
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "Browse/CardProvider.h"
#include "CardFolder.h"

namespace Browse {

class CardFamilyProvider : public CardProvider {
public:
    std::string GetIdentification() const override { return identification_; }
    std::vector<Fnd::WString> MediaExtensions() const override { return mediaExtensions_; }

protected:
    // family ends the identification ("P2", "GoPro").
    CardFamilyProvider(std::string_view family, std::vector<Fnd::WString> mediaExtensions);

    // A clip of this family; the first of its files stands for it, so files must not be empty.
    CardClip MakeClip(std::string_view name, std::vector<Fnd::WString> files) const;

    // The files that join a clip's media file, found from the media file's stem; false when that
    // media file makes no clip.
    using StemCompanions = std::function<bool(const std::string& stem, std::vector<Fnd::WString>& files)>;
    // One clip for each file of folder with one of the media extensions, in name order, named by
    // its stem: the families whose clip is a media file and the files named after it.
    void AppendStemClips(const card::NameIndex& folder,
                         std::initializer_list<std::string_view> mediaExtensions,
                         const StemCompanions& companions, std::vector<CardClip>& clips) const;

private:
    std::string identification_;
    std::vector<Fnd::WString> mediaExtensions_;
};

} // namespace Browse
