#include <gtest/gtest.h>

#include <string>

#include "fluxui/utility/ImageDimensions.h"
#include "fluxui/utility/ImageProvider.h"

namespace igd::test {
namespace {

using fluxui::controls::UI_PictureSupplyMessage;
using fluxui::utility::ImageProvider;
using fluxui::utility::PixelSize;
using fluxui::utility::ResourceManager;
using fluxui::utility::SketcherImageResourceCache;

// The header of a PNG of the given size, which is all the provider reads.
std::string PngHeader(int width, int height) {
    std::string bytes = "\x89PNG\r\n\x1A\n";
    bytes += std::string("\0\0\0\x0D", 4) + "IHDR";
    for (int value : {width, height}) {
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes += static_cast<char>((value >> shift) & 0xFF);
    }
    bytes += std::string("\x08\x06\0\0\0", 5);
    return bytes;
}

std::string Svg(int width, int height) {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + std::to_string(2 * width) +
           "\" viewBox=\"0 0 " + std::to_string(width) + " " + std::to_string(height) + "\"><line/></svg>";
}

std::span<const std::byte> Bytes(std::string_view text) {
    return std::as_bytes(std::span(text.data(), text.size()));
}

// A manager that counts how often the store is searched.
class CountingManager : public ResourceManager {
public:
    std::span<const std::byte> FindResource(std::string_view type, std::string_view name) const override {
        ++lookups;
        return ResourceManager::FindResource(type, name);
    }
    mutable int lookups = 0;
};

class ImageProviderTest : public ::testing::Test {
protected:
    ImageProviderTest() {
        // A full family at every scale, and one that lacks its 1.5x file, as the plain plus does.
        manager.AddResource("PNG", "SP_ADD_SM_N_D", PngHeader(16, 16));
        manager.AddResource("PNG", "SP_ADD_SM_N_D_AT_3TO2X", PngHeader(24, 24));
        manager.AddResource("PNG", "SP_ADD_SM_N_D_AT_2X", PngHeader(32, 32));
        manager.AddResource("SVG", "S_ADD_SM_N_D_AT_2X", Svg(16, 16));
        manager.AddResource("PNG", "SP_ADD_SM_N", PngHeader(16, 16));
        manager.AddResource("PNG", "SP_ADD_SM_N_AT_2X", PngHeader(32, 32));
        manager.AddResource("SVG", "S_SAVE_MD_N_D_AT_2X", Svg(20, 20));
    }

    UI_PictureSupplyMessage Provide(std::string_view name, float displayScale, bool preferVector = false) {
        UI_PictureSupplyMessage message;
        message.displayScale = displayScale;
        provided = provider.ProvideImage(name, message, preferVector);
        return message;
    }

    CountingManager manager;
    SketcherImageResourceCache cache;
    ImageProvider provider{&manager, nullptr, &cache};
    bool provided = false;
};

TEST_F(ImageProviderTest, PicksTheSmallestRasterThatIsNotScaledUp) {
    struct Case {
        float displayScale;
        const char* resource;
        float imageScale;
        int pixels;
    };
    const Case cases[] = {
        {1.0f, "SP_ADD_SM_N_D", 1.0f, 16},           {0.75f, "SP_ADD_SM_N_D", 1.0f, 16},
        {1.25f, "SP_ADD_SM_N_D_AT_3TO2X", 1.5f, 24}, {1.5f, "SP_ADD_SM_N_D_AT_3TO2X", 1.5f, 24},
        {1.75f, "SP_ADD_SM_N_D_AT_2X", 2.0f, 32},    {3.0f, "SP_ADD_SM_N_D_AT_2X", 2.0f, 32}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.displayScale);
        const UI_PictureSupplyMessage message = Provide("ADD_SM_N_D", c.displayScale);
        EXPECT_TRUE(provided);
        EXPECT_EQ(message.imageName, "ADD_SM_N_D");
        EXPECT_EQ(message.resourceType, "PNG");
        EXPECT_EQ(message.resourceName, c.resource);
        EXPECT_EQ(message.imageScale, c.imageScale);
        EXPECT_EQ(message.pixelWidth, c.pixels);
        EXPECT_EQ(message.pixelHeight, c.pixels);
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(message.bytes.data()), message.bytes.size()),
                  PngHeader(c.pixels, c.pixels));
    }
}

TEST_F(ImageProviderTest, FallsBackOnOtherScalesVectorsAndCaseAsTheStoreAllows) {
    manager.AddResource("PNG", "SP_CLOSE_XS_N", PngHeader(13, 13));
    manager.AddResource("PNG", "SP_ALERT_SM_N_D", "not a picture at all, and long enough");
    manager.AddResource("PNG", "SP_ALERT_SM_N_D_AT_3TO2X", PngHeader(24, 24));
    struct Case {
        const char* label;
        const char* name;
        float displayScale;
        bool preferVector;
        const char* resource;
    };
    const Case cases[] = {
        {"a missing scale takes the next larger", "ADD_SM_N", 1.5f, false, "SP_ADD_SM_N_AT_2X"},
        {"else the next smaller", "CLOSE_XS_N", 2.0f, false, "SP_CLOSE_XS_N"},
        {"vector preferred where one exists", "ADD_SM_N_D", 1.0f, true, "S_ADD_SM_N_D_AT_2X"},
        {"vector preferred where none exists", "ADD_SM_N", 1.0f, true, "SP_ADD_SM_N"},
        {"names match without regard to case", "add_sm_n_d", 2.0f, false, "SP_ADD_SM_N_D_AT_2X"},
        {"a file that is not a PNG is passed over", "ALERT_SM_N_D", 1.0f, false, "SP_ALERT_SM_N_D_AT_3TO2X"},
        {"without a raster the SVG answers", "SAVE_MD_N_D", 1.0f, false, "S_SAVE_MD_N_D_AT_2X"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(Provide(c.name, c.displayScale, c.preferVector).resourceName, c.resource);
        EXPECT_TRUE(provided);
    }
}

TEST_F(ImageProviderTest, AnUnknownNameLeavesNoImageFromAnEarlierAnswer) {
    UI_PictureSupplyMessage message;
    ASSERT_TRUE(provider.ProvideImage("ADD_SM_N_D", message, false));
    EXPECT_FALSE(provider.ProvideImage("NOPE_SM_N", message, false));
    EXPECT_FALSE(message.HasImage());
    EXPECT_TRUE(message.bytes.empty());
    EXPECT_EQ(message.pixelWidth, 0);
    EXPECT_EQ(message.imageName, "NOPE_SM_N");
}

TEST_F(ImageProviderTest, EachPictureIsLookedUpOnceForEachScaleAndAMissingOneOnce) {
    for (const char* name : {"ADD_SM_N_D", "NOPE_SM_N"}) {
        SCOPED_TRACE(name);
        Provide(name, 1.0f);
        const int first = manager.lookups;
        Provide(name, 1.0f);
        Provide(name, 0.5f); // the same file answers
        EXPECT_EQ(manager.lookups, first);
    }
    const int before = manager.lookups;
    EXPECT_EQ(Provide("add_sm_n_d", 2.0f).resourceName, "SP_ADD_SM_N_D_AT_2X");
    EXPECT_GT(manager.lookups, before);
    const int afterTwo = manager.lookups;
    Provide("ADD_SM_N_D", 2.0f);
    EXPECT_EQ(manager.lookups, afterTwo);
}

TEST(ImageProviderConstruction, NeedsAManagerAndACache) {
    ResourceManager manager;
    SketcherImageResourceCache cache;
    EXPECT_THROW(ImageProvider(nullptr, nullptr, &cache), std::logic_error);
    EXPECT_THROW(ImageProvider(&manager, nullptr, nullptr), std::logic_error);
}

TEST(ImageDimensions, ReadsPngHeadersAndRejectsOtherBytes) {
    const std::string png = PngHeader(300, 7);
    EXPECT_EQ(fluxui::utility::ReadPngPixelSize(Bytes(png)), (PixelSize{300, 7}));
    EXPECT_FALSE(fluxui::utility::ReadPngPixelSize(Bytes(png.substr(0, 20))));
    std::string wrongChunk = png;
    wrongChunk.replace(12, 4, "IDAT");
    EXPECT_FALSE(fluxui::utility::ReadPngPixelSize(Bytes(wrongChunk)));
    EXPECT_FALSE(fluxui::utility::ReadPngPixelSize(Bytes(PngHeader(0, 5))));
    EXPECT_FALSE(fluxui::utility::ReadPngPixelSize({}));
}

TEST(ImageDimensions, ReadsTheSvgViewBox) {
    EXPECT_EQ(fluxui::utility::ReadSvgViewBoxSize(Bytes(Svg(20, 13))), (PixelSize{20, 13}));
    EXPECT_EQ(fluxui::utility::ReadSvgViewBoxSize(Bytes("<svg viewBox=\"0,0,14.0,8\"/>")), (PixelSize{14, 8}));
    for (const char* bad : {"<svg width=\"10\"/>", "<svg viewBox=\"0 0 14", "<svg viewBox=\"0 0 0 8\"/>"})
        EXPECT_FALSE(fluxui::utility::ReadSvgViewBoxSize(Bytes(bad))) << bad;
}

} // namespace
} // namespace igd::test
