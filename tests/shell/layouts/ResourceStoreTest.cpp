// The resources compiled into the library and the managers over them.
#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "shell/resources/ResourceStore.h"
#include "fluxui/utility/OS_ResourceManager.h"

namespace igd::test {
namespace {

std::string Text(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

TEST(ResourceStore, FindsALayoutByTypeAndNameInAnyCase) {
    const auto upper = IGD::FindStoredResource("XML", "IGDVERIFYSETTING");
    ASSERT_FALSE(upper.empty());
    EXPECT_EQ(Text(upper).rfind("<?xml version='1.0'?>\r\n<prop.map version='4'>", 0), 0u);
    EXPECT_EQ(IGD::FindStoredResource("xml", "igdVerifySetting").data(), upper.data());
    EXPECT_TRUE(IGD::FindStoredResource("PNG", "igdVerifySetting").empty());
    EXPECT_TRUE(IGD::FindStoredResource("XML", "igdVerifySettin").empty());
    EXPECT_TRUE(IGD::FindStoredResource("XML", "").empty());
}

TEST(ResourceStore, ListsNamesUpperCaseAndSorted) {
    const auto names = IGD::StoredResourceNames("XML");
    ASSERT_FALSE(names.empty());
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    for (std::string_view name : names) {
        EXPECT_EQ(std::count_if(name.begin(), name.end(), [](char c) { return c >= 'a' && c <= 'z'; }), 0)
            << name;
        EXPECT_FALSE(IGD::FindStoredResource("XML", name).empty()) << name;
    }
}

TEST(ResourceManagers, AddedResourcesAreFoundInAnyCaseAndCopied) {
    fluxui::utility::ResourceManager manager;
    std::string bytes = "<x/>";
    manager.AddResource("XML", "MyLayout", bytes);
    bytes = "changed";
    EXPECT_EQ(Text(manager.FindResource("xml", "MYLAYOUT")), "<x/>");
    EXPECT_TRUE(manager.HasResource("XML", "mylayout"));
    EXPECT_FALSE(manager.HasResource("PNG", "MyLayout"));
    // The plain manager has no store behind it.
    EXPECT_FALSE(manager.HasResource("XML", "igdVerifySetting"));

    manager.AddResource("XML", "MYLAYOUT", "<y/>");
    EXPECT_EQ(Text(manager.FindResource("XML", "MyLayout")), "<y/>");
}

} // namespace
} // namespace igd::test
