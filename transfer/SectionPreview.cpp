#include "transfer/SectionPreview.h"

#include "IGD/LayoutPreview.h"
#include "transfer/SectionTree.h"

namespace wrangler::ui {

using fluxui::controls::UI_ScrollView;

boost::intrusive_ptr<UI_ScrollView> BuildSectionPreview(const SectionViewExRef& section, float width, float height,
                                                        const std::function<void()>& prepare) {
    boost::intrusive_ptr<UI_ScrollView> scroll(new UI_ScrollView(0, section));
    scroll->UI_SetLocalRectF({0.0f, 0.0f, width, height});
    BuildSectionTree(*section, *IGD::IngestResourceManager(), nullptr);
    // Built, a section is as wide as its layout; the pane stretches it across the dialog.
    section->UI_SetLocalRectF({0.0f, 0.0f, width - UI_ScrollView::kScrollBarSize, section->UI_GetLocalRectF().height});
    ApplySettingsToTree(*section);
    if (prepare)
        prepare();
    // Raw: the function lives in the section, which the scroll view owns.
    UI_ScrollView* view = scroll.get();
    section->UI_InstallSizeChangedNotifyFunction([view](const fluxcore::geom::RectF&) { view->Update(); });
    view->Update();
    return scroll;
}

} // namespace wrangler::ui
