#include "fluxui/utility/ImageProvider.h"

#include <array>
#include <cctype>
#include <cmath>

#include "Fnd/NullInterfaceException.h"
#include "fluxui/utility/ImageDimensions.h"

namespace fluxui::utility {
namespace {

struct RasterScale {
    float factor;
    const char* suffix;
};

constexpr RasterScale kOne{1.0f, ""};
constexpr RasterScale kThreeHalves{1.5f, "_AT_3TO2X"};
constexpr RasterScale kTwo{2.0f, "_AT_2X"};
constexpr float kSvgScale = 2.0f;

// Rasters in the order they are tried for a display scale.
std::array<RasterScale, 3> RasterOrder(float displayScale) {
    if (!(displayScale > 1.0f)) // also a zero or NaN scale of a window not yet shown
        return {kOne, kThreeHalves, kTwo};
    if (displayScale <= 1.5f)
        return {kThreeHalves, kTwo, kOne};
    return {kTwo, kThreeHalves, kOne};
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return upper;
}

std::shared_ptr<const SketcherImage> MakeImage(const char* type, std::string resourceName,
                                               std::span<const std::byte> bytes, float scale,
                                               PixelSize size) {
    auto image = std::make_shared<SketcherImage>();
    image->resourceType = type;
    image->resourceName = std::move(resourceName);
    image->bytes = bytes;
    image->scale = scale;
    image->pixelWidth = size.width;
    image->pixelHeight = size.height;
    return image;
}

} // namespace

ImageProvider::ImageProvider(const ResourceManager* manager, sketcher::SupplierInterface* supplier,
                             SketcherImageResourceCache* cache)
    : manager_(manager), supplier_(supplier), cache_(cache) {
    if (!manager_ || !cache_)
        throw Fnd::NullInterfaceException("ImageProvider needs a resource manager and a cache");
}

bool ImageProvider::ProvideImage(std::string_view name, controls::UI_PictureSupplyMessage& message,
                                 bool preferVector) const {
    message.imageName = std::string(name);
    const std::string upperName = UpperCase(name);
    // Scales that pick the same file share an entry: the key is the first raster tried.
    const std::string key =
        upperName + RasterOrder(message.displayScale)[0].suffix + (preferVector ? "|V" : "|R");
    std::optional<SketcherImageResourceCache::ImagePtr> cached = cache_->Find(key);
    if (!cached) {
        cached = Lookup(upperName, message.displayScale, preferVector);
        cache_->Store(key, *cached);
    }
    const SketcherImageResourceCache::ImagePtr& image = *cached;
    if (!image) {
        message.resourceType.clear();
        message.resourceName.clear();
        message.bytes = {};
        message.imageScale = 1.0f;
        message.pixelWidth = message.pixelHeight = 0;
        return false;
    }
    message.resourceType = image->resourceType;
    message.resourceName = image->resourceName;
    message.bytes = image->bytes;
    message.imageScale = image->scale;
    message.pixelWidth = image->pixelWidth;
    message.pixelHeight = image->pixelHeight;
    return true;
}

SketcherImageResourceCache::ImagePtr ImageProvider::Lookup(const std::string& upperName, float displayScale,
                                                           bool preferVector) const {
    auto vector = [&]() -> SketcherImageResourceCache::ImagePtr {
        std::string resourceName = "S_" + upperName + "_AT_2X";
        const std::span<const std::byte> bytes = manager_->FindResource("SVG", resourceName);
        const std::optional<PixelSize> box = ReadSvgViewBoxSize(bytes);
        if (!box)
            return nullptr;
        const PixelSize pixels{static_cast<int>(box->width * kSvgScale),
                               static_cast<int>(box->height * kSvgScale)};
        return MakeImage("SVG", std::move(resourceName), bytes, kSvgScale, pixels);
    };
    if (preferVector) {
        if (auto image = vector())
            return image;
    }
    for (const RasterScale& scale : RasterOrder(displayScale)) {
        std::string resourceName = "SP_" + upperName + scale.suffix;
        const std::span<const std::byte> bytes = manager_->FindResource("PNG", resourceName);
        // A file that is not a PNG cannot be drawn; the next scale is better than nothing.
        if (const std::optional<PixelSize> size = ReadPngPixelSize(bytes))
            return MakeImage("PNG", std::move(resourceName), bytes, scale.factor, *size);
    }
    return preferVector ? nullptr : vector();
}

} // namespace fluxui::utility
