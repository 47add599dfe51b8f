#include "IgdQt/PictureSource.h"

#include <array>

#include "fluxui/utility/ResourceManager.h"

namespace igd::qt {

QPixmap PictureSource::Find(const fluxui::controls::UI_PictureSupplyMessage& message,
                            qreal devicePixelRatio) const {
    // Only PNG is drawn here; for an SVG the raster twin of the same name serves.
    if (message.resourceType == "PNG" && !message.bytes.empty()) {
        QPixmap pixmap;
        if (pixmap.loadFromData(reinterpret_cast<const uchar*>(message.bytes.data()),
                                static_cast<uint>(message.bytes.size()), "PNG")) {
            pixmap.setDevicePixelRatio(message.imageScale > 0 ? message.imageScale : 1.0);
            return pixmap;
        }
    }
    return Find(message.imageName, devicePixelRatio);
}

QPixmap PictureSource::Find(const std::string& imageName, qreal devicePixelRatio) const {
    if (!resources_ || imageName.empty())
        return {};
    QPixmap pixmap = FindScaled(imageName, devicePixelRatio);
    if (pixmap.isNull() && imageName.rfind("SP_", 0) != 0)
        pixmap = FindScaled("SP_" + imageName, devicePixelRatio);
    return pixmap;
}

QPixmap PictureSource::FindScaled(const std::string& imageName, qreal devicePixelRatio) const {
    struct Candidate {
        const char* suffix;
        qreal ratio;
    };
    // The sharpest file the display can use first, then the others, so that a family missing one
    // scale still shows.
    using Order = std::array<Candidate, 3>;
    const Order order = devicePixelRatio >= 2.0   ? Order{{{"_AT_2X", 2.0}, {"_AT_3TO2X", 1.5}, {"", 1.0}}}
                        : devicePixelRatio >= 1.5 ? Order{{{"_AT_3TO2X", 1.5}, {"_AT_2X", 2.0}, {"", 1.0}}}
                                                  : Order{{{"", 1.0}, {"_AT_3TO2X", 1.5}, {"_AT_2X", 2.0}}};
    for (const Candidate& candidate : order) {
        QPixmap pixmap = Load(imageName + candidate.suffix);
        if (!pixmap.isNull()) {
            pixmap.setDevicePixelRatio(candidate.ratio);
            return pixmap;
        }
    }
    return {};
}

QPixmap PictureSource::Load(const std::string& resourceName) const {
    const std::span<const std::byte> bytes = resources_->FindResource("PNG", resourceName);
    QPixmap pixmap;
    if (!bytes.empty())
        pixmap.loadFromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<uint>(bytes.size()),
                            "PNG");
    return pixmap;
}

} // namespace igd::qt
