#include "BuiltLayout.h"

#include "shell/AutoHintTextEdit.h"
#include "fluxui/archive/PropMapReader.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "fluxui/utility/OS_ResourceManager.h"
#include "shell/resources/ResourceStore.h"

namespace igd::test {

BuiltLayout BuildStoredLayout(const std::string& name) {
    fluxui::utility::OS_ResourceManager resources(&IGD::FindStoredResource);
    BuiltLayout built;
    built.root = fluxui::ui::UI_NodeBuilder::LoadViewFromXML(
        resources, nullptr, name, built.controls,
        [](const Fnd::WString& className) -> fluxui::ui::UI_NodeRef {
            if (className == u"AutoHintTextEdit")
                return fluxui::ui::UI_NodeRef(new IGD::AutoHintTextEdit());
            return {};
        });
    built.archive = fluxui::archive::PropMapReader::Read(resources.FindResource("XML", name));
    return built;
}

Fnd::WString DisplayText(const fluxui::ui::UI_Node& node) {
    using namespace fluxui::controls;
    if (auto* checkbox = dynamic_cast<const UI_Checkbox*>(&node))
        return checkbox->GetText();
    if (auto* button = dynamic_cast<const UI_TextButton*>(&node))
        return button->GetText();
    if (auto* text = dynamic_cast<const UI_StaticText*>(&node))
        return text->GetValue();
    if (auto* edit = dynamic_cast<const UI_TextEdit*>(&node))
        return edit->GetValue();
    return {};
}

} // namespace igd::test
