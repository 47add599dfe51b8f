#pragma once
#include <vector>

#include "Browse/CardClip.h"
#include "Browse/ProviderWrapper.h"

namespace Browse {

// A provider of one camera card family. Its content of a card root is one entry per clip, named
// by the path of the clip's media file relative to the card root.
class CardProvider : public ProviderWrapper {
public:
    bool ShouldCheckFilter() const override { return false; }
    Content GetContent(const Fnd::WString& directory, const Fnd::WString& filter,
                       const std::set<std::string>& fields, const void* reserved) const override;
    std::shared_ptr<const Content> GetSharedContent(const Fnd::WString& directory,
                                                    const std::set<std::string>& fields) const override;

    // The clips of this family on the card whose root is given; none when the family's structure
    // is not there. Names are matched without regard to case. Only index and clip XML files are
    // read.
    virtual std::vector<CardClip> FindClips(const Fnd::WString& cardRoot) const = 0;
    // The same when the cards at openBeside, in the card root's own folder, are open with it. A
    // family whose recordings continue from card to card joins them into the clip of the card the
    // recording starts on, and the parts on this card are then no clips of their own. The others
    // see each card alone.
    virtual std::vector<CardClip> FindClipsAmong(const Fnd::WString& cardRoot,
                                                 const std::vector<Fnd::WString>& /*openBeside*/) const {
        return FindClips(cardRoot);
    }
    // The folder where this family's structure starts for a file below it, when it can tell from
    // the path alone; empty otherwise. Lets a file be placed without listing every ancestor.
    virtual Fnd::WString CardRootForFile(const Fnd::WString& filePath) const = 0;
    // The video files of its clips, for the importable file types.
    virtual std::vector<Fnd::WString> MediaExtensions() const = 0;
};

} // namespace Browse
