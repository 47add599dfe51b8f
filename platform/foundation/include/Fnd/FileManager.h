#pragma once
#include "Fnd/WString.h"

namespace Fnd {

// Opens the folder of the file in the desktop's file manager, with the file selected where the
// manager offers that (the freedesktop FileManager1 service), else through the desktop's
// standard opener (xdg-open). Returns at once; the opener runs on its own, and a desktop without
// either shows nothing.
void ShowInFileManager(const WString& path);

} // namespace Fnd
