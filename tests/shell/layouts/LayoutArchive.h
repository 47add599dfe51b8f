#pragma once
// Layout archives written on the spot, in the store's own format, for tests that need a layout
// the store does not hold or one that is broken on purpose. Header-only: the section and layout
// suites both build with it.
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace igd::test::archive {

inline std::string Pair(const std::string& key, const std::string& value) {
    return "<prop.pair>\r\n<key>" + key + "</key>\r\n" + value + "\r\n</prop.pair>\r\n";
}
inline std::string List(const std::string& pairs) {
    return "<prop.list>\r\n" + pairs + "</prop.list>";
}
inline std::string Unsigned(int value) {
    return "<int type='unsigned' size='32'>" + std::to_string(value) + "</int>";
}
inline std::string UString(const std::string& text) {
    return "<ustring>" + text + "</ustring>";
}
inline std::string Rect(float left, float top, float width, float height) {
    std::string pairs = Pair(".aptype", "<int type='signed' size='32'>1</int>");
    for (const auto& [key, value] : {std::pair{"left", left}, std::pair{"top", top},
                                     std::pair{"width", width}, std::pair{"height", height}}) {
        std::ostringstream text;
        text << "<float>" << value << "</float>";
        pairs += Pair(key, text.str());
    }
    return List(pairs);
}
// "count" and then prefix0, prefix1, ...
inline std::string Numbered(const std::string& prefix, const std::vector<std::string>& maps) {
    std::string pairs = Pair("count", Unsigned(static_cast<int>(maps.size())));
    for (std::size_t i = 0; i < maps.size(); ++i)
        pairs += Pair(prefix + std::to_string(i), maps[i]);
    return List(pairs);
}
inline std::string Section(const std::string& name, const std::string& pairs = "") {
    return List(Pair("sectionName", UString(name)) + pairs);
}
// The UI_Node section: the place and, when given, the id.
inline std::string NodeSection(const std::string& id, const std::string& bounds = Rect(0, 0, 100, 20),
                               const std::string& extraPairs = "") {
    return Section("UI_Node", Pair("bounds", bounds) +
                                  (id.empty() ? "" : Pair("id", "<string>" + id + "</string>")) + extraPairs);
}
inline std::string ChildrenPair(const std::vector<std::string>& children) {
    return children.empty() ? "" : Pair("children", Numbered("child-", children));
}
// A node: its adapter, the custom class offered to a factory when not empty, and the sections of
// its class chain, most derived first.
inline std::string Node(const std::string& adapter, const std::vector<std::string>& sections,
                        const std::string& className = "") {
    return List(Pair("adapter", UString(adapter)) +
                (className.empty() ? "" : Pair("className", UString(className))) +
                Pair("sections", Numbered("section-", sections)));
}

inline std::string SubView(const std::string& id, const std::vector<std::string>& children,
                           const std::string& bounds = Rect(0, 0, 200, 40),
                           const std::string& className = "") {
    return Node("fluxui::ui::UI_SubView",
                {Section("UI_SubView", ChildrenPair(children)), NodeSection(id, bounds)}, className);
}
inline std::string StaticText(const std::string& id, const std::string& bounds,
                              const std::string& className = "") {
    return Node(
        "fluxui::controls::UI_StaticText",
        {Section("UI_StaticText"), Section("UI_ControlView"), Section("UI_SubView"), NodeSection(id, bounds)},
        className);
}
inline std::string Checkbox(const std::string& id, const std::string& text,
                            const std::string& extraNodePairs = "",
                            const std::string& bounds = Rect(0, 0, 100, 20),
                            const std::string& className = "") {
    return Node("fluxui::controls::UI_Checkbox",
                {Section("UI_Checkbox", text.empty() ? "" : Pair("text", UString(text))),
                 Section("UI_Button"), Section("UI_InteractiveControlView"), Section("UI_ControlView"),
                 Section("UI_SubView"), NodeSection(id, bounds, extraNodePairs)},
                className);
}

inline std::string Archive(const std::string& root) {
    return "<?xml version='1.0'?>\r\n<prop.map version='4'>\r\n" +
           List(Pair("UINodeArchive", Unsigned(1)) + Pair("root", root)) + "\r\n</prop.map>\r\n";
}

} // namespace igd::test::archive
