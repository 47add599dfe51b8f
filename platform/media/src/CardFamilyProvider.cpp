#include "CardFamilyProvider.h"

#include <stdexcept>

#include "CardFamilies.h"

namespace Browse {

CardFamilyProvider::CardFamilyProvider(std::string_view family, std::vector<Fnd::WString> mediaExtensions)
    : identification_(std::string(kIdentificationPrefix) + std::string(family)),
      mediaExtensions_(std::move(mediaExtensions)) {}

CardClip CardFamilyProvider::MakeClip(std::string_view name, std::vector<Fnd::WString> files) const {
    if (files.empty())
        throw std::logic_error("a card clip needs a media file: " + std::string(name));
    CardClip clip;
    clip.name = Fnd::FromUTF8(name);
    clip.family = identification_;
    clip.mediaPath = files.front();
    clip.files = std::move(files);
    return clip;
}

void CardFamilyProvider::AppendStemClips(const card::NameIndex& folder,
                                         std::initializer_list<std::string_view> mediaExtensions,
                                         const StemCompanions& companions,
                                         std::vector<CardClip>& clips) const {
    for (const card::Entry& entry : folder.Entries()) {
        if (!card::IsFileOfType(entry, mediaExtensions))
            continue;
        const std::string stem = card::Stem(entry.name);
        std::vector<Fnd::WString> files{card::ToWide(entry.path)};
        if (companions(stem, files))
            clips.push_back(MakeClip(stem, std::move(files)));
    }
}

} // namespace Browse
