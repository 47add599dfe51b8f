#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "fluxui/utility/ImageProvider.h"

namespace igd::test {
namespace {

using fluxui::controls::UI_PictureSupplyMessage;
using fluxui::utility::ImageProvider;
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

    ResourceManager manager;
    SketcherImageResourceCache cache;
    ImageProvider provider{&manager, nullptr, &cache};
    bool provided = false;
};

TEST_F(ImageProviderTest, PicksTheSmallestRasterNotScaledUpElseFallsBackAsTheStoreAllows) {
    manager.AddResource("PNG", "SP_CLOSE_XS_N", PngHeader(13, 13));
    manager.AddResource("PNG", "SP_ALERT_SM_N_D", "not a picture at all, and long enough");
    manager.AddResource("PNG", "SP_ALERT_SM_N_D_AT_3TO2X", PngHeader(24, 24));
    struct Case {
        const char* label;
        const char* name;
        float displayScale;
        bool preferVector;
        const char* resource;
        float imageScale;
        int pixels;
    };
    const Case cases[] = {
        {"own scale", "ADD_SM_N_D", 1.0f, false, "SP_ADD_SM_N_D", 1.0f, 16},
        {"smaller than any", "ADD_SM_N_D", 0.75f, false, "SP_ADD_SM_N_D", 1.0f, 16},
        {"between scales takes the larger", "ADD_SM_N_D", 1.25f, false, "SP_ADD_SM_N_D_AT_3TO2X", 1.5f, 24},
        {"larger than any", "ADD_SM_N_D", 3.0f, false, "SP_ADD_SM_N_D_AT_2X", 2.0f, 32},
        {"a missing scale takes the next larger", "ADD_SM_N", 1.5f, false, "SP_ADD_SM_N_AT_2X", 2.0f, 32},
        {"else the next smaller", "CLOSE_XS_N", 2.0f, false, "SP_CLOSE_XS_N", 1.0f, 13},
        {"vector preferred where one exists", "ADD_SM_N_D", 1.0f, true, "S_ADD_SM_N_D_AT_2X", 0, 0},
        {"vector preferred where none exists", "ADD_SM_N", 1.0f, true, "SP_ADD_SM_N", 1.0f, 16},
        {"names match without regard to case", "add_sm_n_d", 2.0f, false, "SP_ADD_SM_N_D_AT_2X", 2.0f, 32},
        {"a file that is not a PNG is passed over", "ALERT_SM_N_D", 1.0f, false, "SP_ALERT_SM_N_D_AT_3TO2X",
         1.5f, 24},
        {"without a raster the SVG answers", "SAVE_MD_N_D", 1.0f, false, "S_SAVE_MD_N_D_AT_2X", 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const UI_PictureSupplyMessage message = Provide(c.name, c.displayScale, c.preferVector);
        EXPECT_TRUE(provided);
        EXPECT_EQ(message.resourceName, c.resource);
        if (c.pixels) {
            EXPECT_EQ(std::tuple(message.imageScale, message.pixelWidth), std::tuple(c.imageScale, c.pixels));
        }
    }
}

TEST_F(ImageProviderTest, AnUnknownNameLeavesNoImageFromAnEarlierAnswer) {
    UI_PictureSupplyMessage message;
    ASSERT_TRUE(provider.ProvideImage("ADD_SM_N_D", message, false));
    EXPECT_FALSE(provider.ProvideImage("NOPE_SM_N", message, false));
    EXPECT_FALSE(message.HasImage());
    EXPECT_TRUE(message.bytes.empty());
}

} // namespace
} // namespace igd::test
