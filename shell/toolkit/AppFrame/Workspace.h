#pragma once
#include <memory>

#include "fluxworkspace/Workspace.h"

namespace AppFrame {

// The frame's door to the host's workspace. A host without windows (the command line, tests that
// build no dialog) installs none, and Instance answers null.
class Workspace {
public:
    static Workspace* Instance();
    // Installs the host's workspace; null removes it.
    static void Install(std::shared_ptr<fluxworkspace::workspace::Workspace> workspace);

    fluxworkspace::workspace::Workspace* GetPtr() const { return workspace_.get(); }

private:
    std::shared_ptr<fluxworkspace::workspace::Workspace> workspace_;
};

} // namespace AppFrame
