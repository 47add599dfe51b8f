#include "tests/transfer/SectionTestSupport.h"

#include "tests/shell/layouts/LayoutArchive.h"

namespace igd::test {

std::string LayoutXml(float width, float height, const std::vector<LayoutControl>& controls) {
    using namespace archive;
    std::vector<std::string> children;
    for (const LayoutControl& control : controls) {
        const fluxcore::geom::RectF& r = control.bounds;
        const std::string bounds = Rect(r.left, r.top, r.width, r.height);
        switch (control.kind) {
        case LayoutControlKind::SubView:
            children.push_back(SubView(control.id, {}, bounds, control.className));
            break;
        case LayoutControlKind::StaticText:
            children.push_back(StaticText(control.id, bounds, control.className));
            break;
        case LayoutControlKind::Checkbox:
            children.push_back(Checkbox(control.id, "", "", bounds, control.className));
            break;
        }
    }
    return Archive(SubView("", children, Rect(0, 0, width, height)));
}

} // namespace igd::test
