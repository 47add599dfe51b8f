#pragma once
#include "Fnd/WString.h"

namespace fluxui::utility::FileUtils {

// Shows the file selected in its folder, in the desktop's file manager, through the interaction
// driver (which records it under tests).
void RevealAndSelectFile(const Fnd::WString& path);

} // namespace fluxui::utility::FileUtils
