#pragma once
#include "fluxui/ui/UI_Node.h"

namespace fluxui::ui {

// Which node holds the mouse while a button is down. A modal box must end the capture first, or
// the node under the box would keep receiving the drag once the box is gone.
class UI_NodeManager {
public:
    // The one manager; the flag is accepted for the toolkit's signature, the manager always exists.
    static UI_NodeManager& Get(bool create = true);

    void BeginInputCapture(UI_Node* node) { capture_ = node; }
    UI_Node* GetInputCapture() const { return capture_.get(); }
    void EndInputCapture(bool notify) { capture_.reset(); }

private:
    UI_NodeRef capture_;
};

} // namespace fluxui::ui
