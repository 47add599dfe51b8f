#pragma once
// Modal turns that work a panel's form as the person would, for
// ScriptedInteractionDriver::QueueModalTurn:
//
//     ui->QueueModalTurn(FillPanelAndPress({{"production", u"Night Shoot"}, {"keywords", u"rain, night"}}));
//
// Fields are found by their ids field.<key> in the window being run; a key the form does not have
// fails the test. A checkbox field takes u"true" or u"false".
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Fnd/InteractionDriver.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "fluxui/ui/OS_Dialog.h"

namespace igd::test {

using PanelValues = std::vector<std::pair<std::string, Fnd::WString>>;

inline void SetPanelControl(fluxui::ui::UI_Node& window, const std::string& id, const Fnd::WString& value) {
    fluxui::ui::UI_Node* node = window.UI_FindNodeByID(id);
    if (auto* box = dynamic_cast<fluxui::controls::UI_Checkbox*>(node)) {
        if (box->IsChecked() != (value == u"true"))
            box->Press();
    } else if (auto* edit = dynamic_cast<fluxui::controls::UI_TextEdit*>(node)) {
        edit->TypeText(value);
    } else {
        ADD_FAILURE() << "the panel has no field " << id;
    }
}

// Fills the fields (and, with applyToAll set, the apply-to-all box), then presses the button
// ("ok" or "cancel").
inline std::function<void(Fnd::IModalSession&)> FillPanelAndPress(PanelValues values, std::string button = "ok",
                                                                   std::optional<bool> applyToAll = {}) {
    return [values = std::move(values), button = std::move(button), applyToAll](Fnd::IModalSession& session) {
        auto& window = dynamic_cast<fluxui::ui::OS_Dialog&>(session);
        for (const auto& [key, value] : values)
            SetPanelControl(window, "field." + key, value);
        if (applyToAll)
            SetPanelControl(window, "applyToAllDestinations", *applyToAll ? u"true" : u"false");
        auto* press = dynamic_cast<fluxui::controls::UI_Button*>(window.UI_FindNodeByID(button));
        if (!press) {
            ADD_FAILURE() << "the panel has no button " << button;
            return;
        }
        press->Press();
    };
}

} // namespace igd::test
