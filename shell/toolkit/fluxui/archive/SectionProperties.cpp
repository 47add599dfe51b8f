#include "fluxui/archive/SectionProperties.h"

#include <algorithm>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "fluxui/archive/ArchiveValues.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_NumberEdit.h"
#include "fluxui/controls/UI_OutlineBox.h"
#include "fluxui/controls/UI_PictureButton.h"
#include "fluxui/controls/UI_Popup.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "fluxui/ui/UI_SubView.h"

namespace fluxui::archive {

namespace {

using namespace fluxui::controls;
using ui::UI_Node;

using Apply = std::function<void(UI_Node&, const Property&, const std::string& what)>;

struct Setter {
    std::string_view key;
    PropertyType type;
    Apply apply; // empty: the toolkit keeps no such property; the value is only checked
};

// A setter that runs only when the node is of class T: a custom control in place of the
// adapter may lack what the adapter's class has.
template <typename T, typename F> Apply On(F function) {
    return [function](UI_Node& node, const Property& value, const std::string& what) {
        if (auto* target = dynamic_cast<T*>(&node))
            function(*target, value, what);
    };
}

// A typed value (rectangle, enumeration, flags) the toolkit does not keep: checked only.
Apply CheckEnum(int count) {
    return
        [count](UI_Node&, const Property& value, const std::string& what) { EnumValue(value, count, what); };
}

constexpr int kTextAlignments = 4;

TextAlignment AlignmentValue(const Property& value, const std::string& what) {
    return static_cast<TextAlignment>(EnumValue(value, kTextAlignments, what));
}

std::vector<Setter> ButtonSetters() {
    std::vector<Setter> setters{
        {"changeFocusOnClick", PropertyType::Bool, {}},
        {"defaultAppearance", PropertyType::Bool,
         On<UI_Button>([](UI_Button& b, const Property& v, auto&) { b.SetDefaultAppearance(v.boolean); })},
        {"notificationOnMouseDown", PropertyType::Bool, {}},
        {"springLoaded", PropertyType::Bool, {}},
    };
    for (std::string_view key : {"contentOffsetX", "contentOffsetY", "cornerRadius", "downOffsetX",
                                 "downOffsetY", "strokeSize1", "strokeSize2"})
        setters.push_back({key, PropertyType::Float, {}});
    return setters;
}

std::vector<Setter> PopupSetters(bool withType) {
    std::vector<Setter> setters{
        {"alwaysNotify", PropertyType::Bool, {}},
        {"drawDivider", PropertyType::Bool,
         On<UI_Popup>([](UI_Popup& p, const Property& v, auto&) { p.SetDrawDivider(v.boolean); })},
        {"fontSize", PropertyType::Float, On<UI_Popup>([](UI_Popup& p, const Property& v, auto&) {
             p.SetFontSize(static_cast<float>(v.number));
         })},
        {"popupItems", PropertyType::Array, On<UI_Popup>([](UI_Popup& p, const Property& v, auto&) {
             for (const Fnd::WString& item : v.items)
                 p.AddItem(ResolveText(item));
         })},
    };
    if (withType) // read at construction; the check here keeps the type error in one place
        setters.push_back({"popupType", PropertyType::Map, CheckEnum(2)});
    return setters;
}

const std::map<std::string_view, std::vector<Setter>>& SectionTable() {
    static const std::map<std::string_view, std::vector<Setter>> table{
        {"UI_Node",
         {
             {"bounds", PropertyType::Map,
              [](UI_Node& n, const Property& v, const std::string& what) {
                  n.UI_SetLocalRectF(RectValue(v, what));
              }},
             {"id", PropertyType::String,
              [](UI_Node& n, const Property& v, auto&) { n.UI_SetNodeID(v.narrow); }},
             {"tooltip", PropertyType::UString,
              [](UI_Node& n, const Property& v, auto&) { n.UI_SetToolTip(ResolveText(v.text)); }},
             {"visible", PropertyType::Bool,
              [](UI_Node& n, const Property& v, auto&) { n.UI_Show(v.boolean); }},
         }},
        {"UI_SubView",
         {
             // The layout view reads AutoLayout_Horizontal at construction; a plain subview places
             // its children by their Constraints instead.
             {"AutoLayout", PropertyType::Bool, {}},
             {"AutoLayout_Horizontal", PropertyType::Bool, {}},
             {"AutoLayout_MaintainMargins", PropertyType::Bool, {}},
             {"AutoLayout_ScaleChildren", PropertyType::Bool, {}},
             {"LayoutChildren", PropertyType::Bool,
              On<ui::UI_SubView>(
                  [](ui::UI_SubView& s, const Property& v, auto&) { s.UI_SetLayoutsChildren(v.boolean); })},
             {"Constraints", PropertyType::Map,
              On<ui::UI_SubView>([](ui::UI_SubView& s, const Property& v, const std::string& what) {
                  s.UI_SetLayoutBinding(FlagsValue(v, ui::kBindAll, what));
              })},
         }},
        {"UI_LayoutView", {}},
        {"UI_ControlView",
         {
             {"downState", PropertyType::Bool,
              On<UI_ControlView>(
                  [](UI_ControlView& c, const Property& v, auto&) { c.SetDownState(v.boolean); })},
             {"enabled", PropertyType::Bool,
              On<UI_ControlView>(
                  [](UI_ControlView& c, const Property& v, auto&) { c.SetDisabled(!v.boolean); })},
             {"suppressFocusDrawing", PropertyType::Bool, {}},
             {"wantsFocus", PropertyType::Bool,
              On<UI_ControlView>(
                  [](UI_ControlView& c, const Property& v, auto&) { c.SetWantsKeyboardFocus(v.boolean); })},
         }},
        {"UI_InteractiveControlView", {}},
        {"UI_Button", ButtonSetters()},
        {"UI_Checkbox",
         {
             {"checkSize", PropertyType::Float, {}},
             {"fontSize", PropertyType::Float, On<UI_Checkbox>([](UI_Checkbox& c, const Property& v, auto&) {
                  c.SetFontSize(static_cast<float>(v.number));
              })},
             {"checked", PropertyType::Bool,
              On<UI_Checkbox>([](UI_Checkbox& c, const Property& v, auto&) { c.SetChecked(v.boolean); })},
             {"text", PropertyType::UString, On<UI_Checkbox>([](UI_Checkbox& c, const Property& v, auto&) {
                  c.SetText(ResolveText(v.text));
              })},
         }},
        {"UI_TextButton",
         {
             {"text", PropertyType::UString,
              On<UI_TextButton>(
                  [](UI_TextButton& b, const Property& v, auto&) { b.SetText(ResolveText(v.text)); })},
             {"textAlignment", PropertyType::Map,
              On<UI_TextButton>([](UI_TextButton& b, const Property& v, const std::string& what) {
                  b.SetTextAlignment(AlignmentValue(v, what));
              })},
             {"textIndent", PropertyType::Float, {}},
         }},
        {"UI_PictureButton",
         {
             {"displayBorderAlways", PropertyType::Bool,
              On<UI_Button>(
                  [](UI_Button& b, const Property& v, auto&) { b.SetDisplayBorderAlways(v.boolean); })},
             {"displayBorderNever", PropertyType::Bool, {}},
             {"imageName", PropertyType::String,
              On<UI_PictureButton>(
                  [](UI_PictureButton& b, const Property& v, auto&) { b.SetImageName(v.narrow); })},
         }},
        {"UI_Popup", PopupSetters(true)},
        {"UI_PicturePopup", PopupSetters(false)},
        {"UI_StaticText",
         {
             {"alignment", PropertyType::Map,
              On<UI_StaticText>([](UI_StaticText& t, const Property& v, const std::string& what) {
                  t.SetAlignment(AlignmentValue(v, what));
              })},
             // Our presenters elide at the end; the archive's choice is checked and not kept.
             {"textTruncation", PropertyType::Map, CheckEnum(3)},
             {"fontSize", PropertyType::Float,
              On<UI_StaticText>([](UI_StaticText& t, const Property& v, auto&) {
                  t.SetFontSize(static_cast<float>(v.number));
              })},
             {"multiLine", PropertyType::Bool,
              On<UI_StaticText>(
                  [](UI_StaticText& t, const Property& v, auto&) { t.SetMultiLine(v.boolean); })},
             {"text", PropertyType::UString,
              On<UI_StaticText>(
                  [](UI_StaticText& t, const Property& v, auto&) { t.SetValue(ResolveText(v.text)); })},
         }},
        {"UI_TextEdit",
         {
             {"text", PropertyType::UString, On<UI_TextEdit>([](UI_TextEdit& e, const Property& v, auto&) {
                  e.SetValue(ResolveText(v.text), false);
              })},
         }},
        {"UI_TextEdit_S", {}},
        {"UI_NumberEdit",
         {
             {"decimalPlaces", PropertyType::Int,
              On<UI_NumberEdit>([](UI_NumberEdit& e, const Property& v, const std::string& what) {
                  if (v.isUnsigned || v.integer < 0 || v.integer > 9)
                      throw ArchiveError(what + ": expected a signed int from 0 to 9");
                  e.SetDecimalPlaces(static_cast<int>(v.integer));
              })},
             // Applied in this order whatever the file's order: the range first, then the value in it.
             {"minValue", PropertyType::Double,
              On<UI_NumberEdit>([](UI_NumberEdit& e, const Property& v, auto&) {
                  e.SetRange(v.number, std::max(v.number, e.GetMaxValue()));
              })},
             {"maxValue", PropertyType::Double,
              On<UI_NumberEdit>([](UI_NumberEdit& e, const Property& v, const std::string& what) {
                  if (v.number < e.GetMinValue())
                      throw ArchiveError(what + ": below minValue");
                  e.SetRange(e.GetMinValue(), v.number);
              })},
             {"value", PropertyType::Double,
              On<UI_NumberEdit>(
                  [](UI_NumberEdit& e, const Property& v, auto&) { e.SetNumber(v.number, false); })},
             {"formatAlwaysSign", PropertyType::Bool, {}},
             {"formatLeadingSpaces", PropertyType::Bool, {}},
             {"formatNoLocalization", PropertyType::Bool, {}},
             {"formatNoTrailingZeros", PropertyType::Bool, {}},
             {"formatNormal", PropertyType::Bool, {}},
             {"formatPadSign", PropertyType::Bool, {}},
             {"formatUseSeparator", PropertyType::Bool, {}},
         }},
        {"UI_OutlineBox",
         {
             {"cornerRadius", PropertyType::Float,
              On<UI_OutlineBox>([](UI_OutlineBox& b, const Property& v, auto&) {
                  b.SetCornerRadius(static_cast<float>(v.number));
              })},
         }},
        {"UI_Divider", {}},
    };
    return table;
}

} // namespace

bool SectionHoldsChildren(std::string_view sectionName) {
    return sectionName == "UI_LayoutView" || sectionName == "UI_SubView" || sectionName == "UI_OutlineBox";
}

void ApplySectionProperties(UI_Node& node, std::string_view sectionName, const Property& section) {
    const auto& table = SectionTable();
    const auto found = table.find(sectionName);
    if (found == table.end())
        throw ArchiveError("unknown section " + std::string(sectionName));
    const std::vector<Setter>& setters = found->second;

    for (const PropertyPair& pair : section.pairs) {
        if (pair.key == "sectionName" || (pair.key == "children" && SectionHoldsChildren(sectionName)))
            continue;
        const bool known = std::any_of(setters.begin(), setters.end(),
                                       [&](const Setter& setter) { return setter.key == pair.key; });
        if (!known)
            throw ArchiveError("section " + std::string(sectionName) + " has no property " + pair.key);
    }
    // In the table's order, so that dependent properties (a range before its value) apply right.
    for (const Setter& setter : setters) {
        const Property* value = section.Find(setter.key);
        if (!value)
            continue;
        const std::string what = std::string(sectionName) + "." + std::string(setter.key);
        ExpectType(*value, setter.type, what);
        if (setter.apply) {
            try {
                setter.apply(node, *value, what);
            } catch (const std::invalid_argument& e) {
                throw ArchiveError(what + ": " + e.what());
            }
        } else if (setter.type == PropertyType::Map) {
            throw std::logic_error("a typed property needs a check: " + what);
        }
    }
}

} // namespace fluxui::archive
