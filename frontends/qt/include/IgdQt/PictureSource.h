#pragma once
// Finds the pixels of a named image for a picture control: the PNG of the resource store at the
// scale of the display.
#include <QPixmap>
#include <string>

#include "fluxui/controls/UI_PictureSupplyMessage.h"

namespace fluxui::utility {
class ResourceManager;
}

namespace igd::qt {

class PictureSource {
public:
    PictureSource() = default;
    explicit PictureSource(const fluxui::utility::ResourceManager* resources) : resources_(resources) {}

    // The picture a supply function handed over, or, when it gave only a name, the picture of
    // that name. Null when there is none to draw.
    QPixmap Find(const fluxui::controls::UI_PictureSupplyMessage& message, qreal devicePixelRatio) const;
    // The picture for a display with devicePixelRatio: the _AT_2X file at 2 and above, the
    // _AT_3TO2X file at 1.5 and above, else the base file, each falling back on the others. Null
    // when there is no such image. The name may leave out the PNG prefix "SP_".
    QPixmap Find(const std::string& imageName, qreal devicePixelRatio) const;
    bool HasResources() const { return resources_ != nullptr; }

private:
    QPixmap Load(const std::string& resourceName) const;
    QPixmap FindScaled(const std::string& resourceName, qreal devicePixelRatio) const;

    const fluxui::utility::ResourceManager* resources_ = nullptr;
};

} // namespace igd::qt
