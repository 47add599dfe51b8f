#include "Browse/CardProvider.h"

#include "Browse/CardScanScope.h"
#include "CardFolder.h"
#include "ScopedScans.h"

namespace Browse {

namespace {

Content MakeContent(const CardProvider& provider, const Fnd::WString& directory,
                    const std::set<std::string>& fields) {
    Content content;
    const card::fs::path root = card::ToPath(directory);
    const CardScanScope::ClipList clips = CardScanScope::Clips(provider, directory);
    for (const CardClip& clip : *clips) {
        const Fnd::WString entry = card::ToWide(card::ToPath(clip.mediaPath).lexically_relative(root));
        ContentFields& entryFields = content[entry];
        if (fields.count(kNameField))
            entryFields[kNameField] = any_regular_t(clip.name);
        if (fields.count(kExtraPathField)) {
            std::vector<any_regular_t> files;
            files.reserve(clip.files.size());
            for (const Fnd::WString& file : clip.files)
                files.emplace_back(file);
            entryFields[kExtraPathField] = any_regular_t(std::move(files));
        }
    }
    return content;
}

} // namespace

Content CardProvider::GetContent(const Fnd::WString& directory, const Fnd::WString& /*filter*/,
                                 const std::set<std::string>& fields, const void* /*reserved*/) const {
    return *GetSharedContent(directory, fields);
}

std::shared_ptr<const Content> CardProvider::GetSharedContent(const Fnd::WString& directory,
                                                              const std::set<std::string>& fields) const {
    return scans::ContentOf(*this, directory, fields, [&] { return MakeContent(*this, directory, fields); });
}

} // namespace Browse
