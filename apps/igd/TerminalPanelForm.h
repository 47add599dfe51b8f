#pragma once
// A panel's form worked on the terminal: values given on the command line first, then the person
// asked for the rest when there is a terminal to ask on.
#include <istream>
#include <map>
#include <ostream>
#include <string>

#include "Fnd/WString.h"
#include "fluxui/ui/OS_Dialog.h"

namespace igd {

// By the key the form names a field with (its id without "field."); "applyToAllDestinations" is
// the apply-to-all box. A box takes true/false, yes/no, y/n or 1/0.
using PanelValues = std::map<std::string, std::string>;

// Fills the form of window and presses its OK. Without a terminal, a required field that no value
// names refuses: the reason goes to out and the panel is cancelled. Answers whether OK was pressed.
bool WorkPanelOnTerminal(fluxui::ui::OS_Dialog& window, const PanelValues& values, std::istream& in,
                         std::ostream& out, bool interactive);

} // namespace igd
