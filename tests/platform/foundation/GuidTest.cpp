#include <gtest/gtest.h>

#include <set>
#include <thread>
#include <vector>

#include "Fnd/FndUnknown.h"
#include "fluxcore/Guid.h"

namespace igd::test {

using fluxcore::utility::Guid;

// Batches made by concurrent workers are told apart by their Guid alone.
TEST(Guid, CreateUniqueMakesDistinctIdentitiesAcrossThreads) {
    constexpr int kThreads = 8, kPerThread = 2000;
    std::vector<std::vector<Guid>> made(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t)
        threads.emplace_back([&made, t] {
            for (int i = 0; i < kPerThread; ++i)
                made[t].push_back(Guid::CreateUnique());
        });
    for (auto& thread : threads)
        thread.join();
    std::set<Guid> all;
    for (const auto& list : made)
        all.insert(list.begin(), list.end());
    EXPECT_EQ(all.size(), static_cast<std::size_t>(kThreads * kPerThread));
    EXPECT_TRUE(Guid().IsZero());
}

// The text form is how a batch is named to `igd resume` and stored in the journal.
TEST(Guid, TextFormRoundTripsInByteOrderAndMalformedTextIsRefused) {
    const Guid guid = Guid::CreateUnique();
    EXPECT_EQ(Guid::FromString(guid.ToString()), guid);
    const auto parsed = Guid::FromString("38645337-a23d-4652-9c78-542163697f95");
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->Bytes()[0], 0x38);
    EXPECT_EQ(parsed->Bytes()[15], 0x95);
    EXPECT_EQ(parsed->ToString(), "{38645337-A23D-4652-9C78-542163697F95}");

    // Braces only as a pair, dashes only in place, hex digits only, no sign, exact length.
    const char* bad[] = {"{38645337-A23D-4652-9C78-542163697F95",  "38645337A23D-4652-9C78-542163697F95-",
                         "38645337-A23D-4652-9C78-542163697F9G",   "38645337-A23D-4652-9C78-542163697F9",
                         "38645337-+23D-4652-9C78-542163697F95",   ""};
    for (const char* text : bad) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(Guid::FromString(text));
    }
    EXPECT_THROW(Fnd::MakeInterfaceID("{38645337-A23D}"), std::invalid_argument);
}

} // namespace igd::test
