// The icon set as the store holds it: every name the naming rules give, at its pixel size, and
// nothing else.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

#include "shell/resources/ResourceStore.h"
#include "fluxui/utility/ImageDimensions.h"

namespace {

using fluxui::utility::PixelSize;

struct Family {
    std::string name;
    std::string sizeClass;
    int width;
    int height;
    std::vector<std::string> states;
};

// The families, their sizes at 1x and the states the set carries.
const std::vector<Family> kFamilies = {
    {"ADD", "SM", 16, 16, {"N", "N_D", "S_D"}}, {"ADDTRI", "MD", 18, 18, {"N_D", "S_D"}},
    {"ALERT", "SM", 16, 16, {"N_D"}},           {"CLOSE", "XS", 13, 13, {"N", "N_D"}},
    {"DELETE", "WI", 20, 13, {"N_D", "S_D"}},   {"POWER", "SM", 16, 16, {"N_D", "S_D"}},
    {"SAVEAS", "MD", 20, 20, {"N_D", "S_D"}},   {"SORTDOWN", "XS", 14, 8, {"N_D", "S_D"}},
    {"SORTUP", "XS", 14, 8, {"N_D", "S_D"}},
};

struct ExpectedImage {
    std::string name;
    PixelSize size;
};

std::vector<ExpectedImage> ExpectedPngs() {
    struct Scale {
        double factor;
        std::string suffix;
    };
    const Scale scales[] = {{1.0, ""}, {1.5, "_AT_3TO2X"}, {2.0, "_AT_2X"}};
    std::vector<ExpectedImage> images;
    for (const Family& family : kFamilies) {
        for (const std::string& state : family.states) {
            for (const Scale& scale : scales) {
                if (family.name == "ADD" && state == "N" && scale.factor == 1.5)
                    continue;
                const PixelSize size{static_cast<int>(std::ceil(family.width * scale.factor)),
                                     static_cast<int>(std::ceil(family.height * scale.factor))};
                images.push_back(
                    {"SP_" + family.name + "_" + family.sizeClass + "_" + state + scale.suffix, size});
            }
        }
    }
    return images;
}

std::vector<ExpectedImage> ExpectedSvgs() {
    // The viewBox is the 1x size; the file is drawn for 2x.
    std::vector<ExpectedImage> images = {{"S_SAVE_MD_N_D_AT_2X", {20, 20}},
                                         {"S_POWER_SM_S_N_AT_2X", {16, 16}},
                                         {"S_POWER_SM_S_D_AT_2X", {16, 16}}};
    for (const Family& family : kFamilies) {
        for (const std::string& state : family.states) {
            if (state == "N" || state == "N_D")
                images.push_back({"S_" + family.name + "_" + family.sizeClass + "_" + state + "_AT_2X",
                                  {family.width, family.height}});
        }
    }
    return images;
}

std::set<std::string> Names(const std::vector<ExpectedImage>& images) {
    std::set<std::string> names;
    for (const ExpectedImage& image : images)
        names.insert(image.name);
    return names;
}

std::set<std::string> StoredNames(std::string_view type) {
    std::set<std::string> names;
    for (std::string_view name : IGD::StoredResourceNames(type))
        names.insert(std::string(name));
    return names;
}

TEST(IconSet, TheStoreHoldsExactlyTheNamedImages) {
    EXPECT_EQ(ExpectedPngs().size(), 53u);
    EXPECT_EQ(ExpectedSvgs().size(), 14u);
    EXPECT_EQ(StoredNames("PNG"), Names(ExpectedPngs()));
    EXPECT_EQ(StoredNames("SVG"), Names(ExpectedSvgs()));
}

TEST(IconSet, EveryPngHasThePixelSizeOfItsScale) {
    for (const ExpectedImage& image : ExpectedPngs()) {
        SCOPED_TRACE(image.name);
        const std::optional<PixelSize> size =
            fluxui::utility::ReadPngPixelSize(IGD::FindStoredResource("PNG", image.name));
        ASSERT_TRUE(size.has_value());
        EXPECT_EQ(size->width, image.size.width);
        EXPECT_EQ(size->height, image.size.height);
    }
}

std::string Transcoded(const XMLCh* text) {
    char* narrow = xercesc::XMLString::transcode(text);
    std::string result(narrow);
    xercesc::XMLString::release(&narrow);
    return result;
}

class SvgParsing : public ::testing::Test {
protected:
    static void SetUpTestSuite() { xercesc::XMLPlatformUtils::Initialize(); }
    static void TearDownTestSuite() { xercesc::XMLPlatformUtils::Terminate(); }
};

TEST_F(SvgParsing, EverySvgIsWellFormedWithTheViewBoxOfItsFamily) {
    for (const ExpectedImage& image : ExpectedSvgs()) {
        SCOPED_TRACE(image.name);
        const std::span<const std::byte> bytes = IGD::FindStoredResource("SVG", image.name);
        ASSERT_FALSE(bytes.empty());
        xercesc::XercesDOMParser parser;
        xercesc::HandlerBase errors; // throws on the first error
        parser.setErrorHandler(&errors);
        xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(bytes.data()), bytes.size(),
                                          image.name.c_str());
        ASSERT_NO_THROW(parser.parse(source));
        const xercesc::DOMElement* root = parser.getDocument()->getDocumentElement();
        ASSERT_NE(root, nullptr);
        EXPECT_EQ(Transcoded(root->getTagName()), "svg");
        XMLCh* viewBoxName = xercesc::XMLString::transcode("viewBox");
        const std::string viewBox = Transcoded(root->getAttribute(viewBoxName));
        xercesc::XMLString::release(&viewBoxName);
        EXPECT_EQ(viewBox,
                  "0 0 " + std::to_string(image.size.width) + " " + std::to_string(image.size.height));
        EXPECT_GT(root->getChildElementCount(), 0u);
    }
}

} // namespace
