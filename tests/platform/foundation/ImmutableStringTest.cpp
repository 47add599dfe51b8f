#include <gtest/gtest.h>

#include <string>

#include "fluxcore/ImmutableString.h"

namespace igd::test {

using fluxcore::utility::ImmutableString;

namespace {
// Made during static initialisation, before main and before any test runs.
const ImmutableString kStaticKey("IGD.IngestDestinationSettingImpl.static");
} // namespace

TEST(ImmutableString, EqualTextsShareOneAddress) {
    const ImmutableString a("IGD.Station");
    const ImmutableString b(std::string("IGD.") + "Station");
    EXPECT_EQ(a.c_str(), b.c_str());
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a == ImmutableString("IGD.station"));
    EXPECT_EQ(kStaticKey, ImmutableString("IGD.IngestDestinationSettingImpl.static"));
    EXPECT_TRUE(ImmutableString() == ImmutableString(""));
}

} // namespace igd::test
