#include "tests/transfer/SectionTestSupport.h"

#include <sstream>

namespace igd::test {

namespace {

std::string Pair(const std::string& key, const std::string& value) {
    return "<prop.pair>\r\n<key>" + key + "</key>\r\n" + value + "</prop.pair>\r\n";
}

std::string Map(const std::string& pairs) {
    return "<prop.list>\r\n" + pairs + "</prop.list>\r\n";
}

std::string Unsigned(unsigned value) {
    return "<int type='unsigned' size='32'>" + std::to_string(value) + "</int>\r\n";
}

std::string UString(const std::string& text) {
    return "<ustring>" + text + "</ustring>\r\n";
}

std::string Float(float value) {
    std::ostringstream text;
    text << "<float>" << value << "</float>\r\n";
    return text.str();
}

std::string Bounds(const fluxcore::geom::RectF& rect) {
    return Map(Pair(".aptype", "<int type='signed' size='32'>1</int>\r\n") + Pair("left", Float(rect.left)) +
               Pair("top", Float(rect.top)) + Pair("width", Float(rect.width)) +
               Pair("height", Float(rect.height)));
}

// One node: its adapter, and the section of each class of its chain, most derived first. The
// UI_Node section carries the place and the id; the UI_SubView section the children.
std::string Node(const std::string& adapter, const std::vector<std::string>& chain, const std::string& id,
                 const fluxcore::geom::RectF& bounds, const std::string& className,
                 const std::vector<std::string>& children) {
    std::string sections = Pair("count", Unsigned(static_cast<unsigned>(chain.size())));
    for (std::size_t i = 0; i < chain.size(); ++i) {
        std::string properties = Pair("sectionName", UString(chain[i]));
        if (chain[i] == "UI_Node") {
            properties += Pair("bounds", Bounds(bounds));
            if (!id.empty())
                properties += Pair("id", "<string>" + id + "</string>\r\n");
        }
        if (chain[i] == "UI_SubView" && !children.empty()) {
            std::string list = Pair("count", Unsigned(static_cast<unsigned>(children.size())));
            for (std::size_t c = 0; c < children.size(); ++c)
                list += Pair("child-" + std::to_string(c), children[c]);
            properties += Pair("children", Map(list));
        }
        sections += Pair("section-" + std::to_string(i), Map(properties));
    }
    std::string node = Pair("adapter", UString(adapter));
    if (!className.empty())
        node += Pair("className", UString(className));
    return Map(node + Pair("sections", Map(sections)));
}

std::string ControlNode(const LayoutControl& control) {
    switch (control.kind) {
    case LayoutControlKind::SubView:
        return Node("fluxui::ui::UI_SubView", {"UI_SubView", "UI_Node"}, control.id, control.bounds,
                    control.className, {});
    case LayoutControlKind::StaticText:
        return Node("fluxui::controls::UI_StaticText",
                    {"UI_StaticText", "UI_ControlView", "UI_SubView", "UI_Node"}, control.id, control.bounds,
                    control.className, {});
    case LayoutControlKind::Checkbox:
        return Node("fluxui::controls::UI_Checkbox",
                    {"UI_Checkbox", "UI_Button", "UI_InteractiveControlView", "UI_ControlView", "UI_SubView",
                     "UI_Node"},
                    control.id, control.bounds, control.className, {});
    }
    return {};
}

} // namespace

std::string LayoutXml(float width, float height, const std::vector<LayoutControl>& controls) {
    std::vector<std::string> children;
    for (const LayoutControl& control : controls)
        children.push_back(ControlNode(control));
    const std::string root =
        Node("fluxui::ui::UI_SubView", {"UI_SubView", "UI_Node"}, "", {0, 0, width, height}, "", children);
    return "<?xml version='1.0'?>\r\n<prop.map version='4'>\r\n" +
           Map(Pair("UINodeArchive", Unsigned(1)) + Pair("root", root)) + "</prop.map>\r\n";
}

std::vector<fluxcore::geom::RectF>
RecordingSketcher::OutlinesIn(const fluxui::sketcher::ColorRGBA& color) const {
    std::vector<fluxcore::geom::RectF> found;
    for (const Outline& outline : outlines)
        if (outline.color == color)
            found.push_back(outline.rect);
    return found;
}

} // namespace igd::test
