#pragma once
#include <string>
#include <string_view>

#include "fluxui/controls/UI_PictureSupplyMessage.h"
#include "fluxui/sketcher/Sketcher.h"
#include "fluxui/utility/ResourceManager.h"
#include "fluxui/utility/SketcherImageResourceCache.h"

namespace fluxui::utility {

// Finds the file of an image for the screen it will be drawn on. An image is named without prefix
// or scale ("ADD_SM_N_D"); the store keeps it as PNG at 1x (SP_ADD_SM_N_D), 1.5x (..._AT_3TO2X)
// and 2x (..._AT_2X), and as an SVG master drawn for 2x (S_ADD_SM_N_D_AT_2X).
//
// The raster chosen is the smallest whose scale is at least the display's, so a picture is only
// ever scaled down: 1x up to a display scale of 1, 1.5x up to 1.5, 2x above. When that scale is
// missing the next larger one serves, then the next smaller; an image with no PNG at all is given
// as its SVG.
class ImageProvider {
public:
    // None of the three is owned; the manager and the cache must outlive the provider.
    ImageProvider(const ResourceManager* manager, sketcher::SupplierInterface* supplier,
                  SketcherImageResourceCache* cache);

    // Fills the message's image fields with the file for message.displayScale and sets its
    // imageName to `name`. preferVector asks for the SVG master whenever there is one, for a
    // presenter that draws vectors. Answers false, with no file in the message, when the store has
    // no image of that name.
    bool ProvideImage(std::string_view name, controls::UI_PictureSupplyMessage& message,
                      bool preferVector) const;

    sketcher::SupplierInterface* GetDrawSupplier() const { return supplier_; }

private:
    SketcherImageResourceCache::ImagePtr Lookup(const std::string& upperName, float displayScale,
                                                bool preferVector) const;

    const ResourceManager* manager_;
    sketcher::SupplierInterface* supplier_;
    SketcherImageResourceCache* cache_;
};

} // namespace fluxui::utility
