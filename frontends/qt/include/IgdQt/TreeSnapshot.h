#pragma once
// Renders a toolkit tree offscreen to an image, as the person would see it.
#include <QImage>

#include "IgdQt/PictureSource.h"
#include "fluxui/ui/UI_Node.h"

namespace igd::qt {

// The tree at its current size, with the dialog's background.
QImage RenderTree(const fluxui::ui::UI_NodeRef& root, PictureSource pictures = {});

} // namespace igd::qt
