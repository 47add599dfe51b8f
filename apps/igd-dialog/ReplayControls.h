#pragma once
// The controls of a toolkit window as a replay reaches them: by id, as the person sees them, and
// worked through the same calls the person's clicks and keys make.
#include <stdexcept>
#include <string>
#include <vector>

#include "fluxui/ui/UI_Node.h"

namespace fluxmediabrowser {
class MediaBrowserView;
}

namespace igd::dialog {

// A step that cannot be done as written: the message says what and names the control.
class ReplayActionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// "ID" is the first visible node of that id under root, "ID@N" the Nth (from 1). Null when there
// is none; throws ReplayActionError for an N that is no number.
fluxui::ui::UI_Node* FindControl(fluxui::ui::UI_Node& root, const std::string& reference);
// The first media browser under root, null without one.
fluxmediabrowser::MediaBrowserView* FindMediaBrowser(fluxui::ui::UI_Node& root);

// Each throws ReplayActionError when the control cannot take the action or is disabled.
void PressControl(fluxui::ui::UI_Node& control, const std::string& reference);
// A checkbox takes on or off, a popup the text of one of its rows, a text or number edit the
// text, committed as when the person leaves the field.
void SetControl(fluxui::ui::UI_Node& control, const std::string& reference, const std::string& value);
// Typed over what a text edit holds, one key at a time, then committed.
void TypeIntoControl(fluxui::ui::UI_Node& control, const std::string& reference, const std::string& text);
// Ticks or unticks the shown row whose name, or file name, is name.
void TickRow(fluxmediabrowser::MediaBrowserView& browser, const std::string& name, bool tick);

// One line per visible node that has an id: id, class, state and text.
std::vector<std::string> DescribeControls(fluxui::ui::UI_Node& root);

} // namespace igd::dialog
