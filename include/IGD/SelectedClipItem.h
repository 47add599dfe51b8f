#pragma once
#include "IGD/SelectedItem.h"
#include "fluxmediatypes/MediaTypes.h"

namespace IGD {

// A clip: one file, or a clip stored as a folder structure on a camera card.
class IGD_EXPORT SelectedClipItem : public SelectedItem {
public:
    using SelectedItem::SelectedItem;

    // True: the clip is one file, so a rename may change its name. False: a folder-based clip,
    // which keeps its file names.
    bool IsSingleFileType() const { return singleFileType_; }
    void SetIsSingleFileType(bool single) { singleFileType_ = single; }

    fluxmediatypes::Time GetInPoint() const { return inPoint_; }
    void SetInPoint(fluxmediatypes::Time t) { inPoint_ = t; }
    fluxmediatypes::Time GetOutPoint() const { return outPoint_; }
    void SetOutPoint(fluxmediatypes::Time t) { outPoint_ = t; }
    fluxmediatypes::FrameRate GetFrameRate() const { return frameRate_; }
    void SetFrameRate(fluxmediatypes::FrameRate rate) { frameRate_ = rate; }
    const Fnd::WString& GetClipName() const { return clipName_; }
    void SetClipName(const Fnd::WString& name) { clipName_ = name; }

    bool HasInOutPoints() const {
        return inPoint_ != fluxmediatypes::kTime_Invalid && outPoint_ != fluxmediatypes::kTime_Invalid;
    }
    void ClearInOutPoints() { inPoint_ = outPoint_ = fluxmediatypes::kTime_Invalid; }

private:
    fluxmediatypes::Time inPoint_ = fluxmediatypes::kTime_Invalid;
    fluxmediatypes::Time outPoint_ = fluxmediatypes::kTime_Invalid;
    fluxmediatypes::FrameRate frameRate_ = fluxmediatypes::kFrameRate_Zero;
    Fnd::WString clipName_;
    bool singleFileType_ = false;
};

using SelectedClipItemRef = boost::intrusive_ptr<SelectedClipItem>;

} // namespace IGD
