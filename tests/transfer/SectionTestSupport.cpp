#include "tests/transfer/SectionTestSupport.h"

#include "tests/shell/layouts/LayoutArchive.h"

namespace igd::test {

std::string LayoutXml(float width, float height, const std::vector<LayoutControl>& controls) {
    using namespace archive;
    std::vector<std::string> children;
    for (const LayoutControl& control : controls) {
        const fluxcore::geom::RectF& r = control.bounds;
        const std::string bounds = Rect(r.left, r.top, r.width, r.height);
        children.push_back(control.kind == LayoutControlKind::Checkbox
                               ? Checkbox(control.id, "", "", bounds)
                               : StaticText(control.id, bounds));
    }
    return Archive(SubView("", children, Rect(0, 0, width, height)));
}

} // namespace igd::test
