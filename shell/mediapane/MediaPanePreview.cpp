#include "IGD/MediaPanePreview.h"

#include <cstdlib>

#include "Mid/Project.h"
#include "shell/mediapane/IngestTopView.h"

namespace IGD {

MediaPanePreview BuildMediaPanePreview(const Fnd::WString& directory, float width, float height, MediaPaneView view) {
    boost::intrusive_ptr<IngestTopView> top(new IngestTopView(nullptr, nullptr, nullptr));
    top->CreateBrowser(Mid::GetProject());
    top->UI_SetLocalRectF({0, 0, width, height});
    fluxmediabrowser::MediaBrowserView& browser = *top->GetBrowser();
    if (view == MediaPaneView::Icons)
        browser.OnIconViewButtonClicked(nullptr);
    else if (view == MediaPaneView::List)
        browser.OnListViewButtonClicked(nullptr);
    const char* home = std::getenv("HOME");
    browser.OpenDirectory(!directory.empty() ? directory : Fnd::FromUTF8(home ? home : "/"));
    return {top, &browser};
}

} // namespace IGD
