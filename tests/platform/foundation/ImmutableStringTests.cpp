#include <gtest/gtest.h>

#include <set>
#include <string>
#include <thread>
#include <vector>

#include "fluxcore/ImmutableString.h"

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

TEST(ImmutableString, InterningFromManyThreadsAgrees) {
    constexpr int kThreads = 8, kNames = 500;
    std::vector<std::vector<const char*>> seen(kThreads, std::vector<const char*>(kNames));
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t)
        threads.emplace_back([&seen, t] {
            for (int i = 0; i < kNames; ++i)
                seen[t][i] = ImmutableString("thread.key." + std::to_string(i)).c_str();
        });
    for (auto& thread : threads)
        thread.join();
    for (int t = 1; t < kThreads; ++t)
        EXPECT_EQ(seen[t], seen[0]);
    EXPECT_EQ(std::set<const char*>(seen[0].begin(), seen[0].end()).size(), static_cast<std::size_t>(kNames));
}
