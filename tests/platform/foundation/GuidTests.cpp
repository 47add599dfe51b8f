#include <gtest/gtest.h>

#include <ctime>
#include <regex>
#include <set>
#include <thread>
#include <vector>

#include "Fnd/Date.h"
#include "Fnd/FndUnknown.h"
#include "fluxcore/Guid.h"

using fluxcore::utility::Guid;

TEST(Guid, CreateUniqueMakesVersion4Identities) {
    const Guid guid = Guid::CreateUnique();
    EXPECT_FALSE(guid.IsZero());
    EXPECT_EQ(guid.Bytes()[6] >> 4, 4);
    EXPECT_EQ(guid.Bytes()[8] >> 6, 2);
    EXPECT_TRUE(Guid().IsZero());
}

TEST(Guid, CreateUniqueIsUniqueAcrossThreads) {
    constexpr int kThreads = 8, kPerThread = 2000;
    std::vector<std::vector<Guid>> made(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&made, t] {
            for (int i = 0; i < kPerThread; ++i)
                made[t].push_back(Guid::CreateUnique());
        });
    }
    for (auto& thread : threads)
        thread.join();
    std::set<Guid> all;
    for (const auto& list : made)
        all.insert(list.begin(), list.end());
    EXPECT_EQ(all.size(), static_cast<std::size_t>(kThreads * kPerThread));
}

TEST(Guid, TextFormRoundTrips) {
    const Guid guid = Guid::CreateUnique();
    const std::string text = guid.ToString();
    EXPECT_TRUE(std::regex_match(
        text, std::regex(R"(\{[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}\})")))
        << text;
    EXPECT_EQ(Guid::FromString(text), guid);
    EXPECT_EQ(guid.ToWString(), Fnd::FromASCII(text));
}

TEST(Guid, FromStringReadsBytesInTextOrder) {
    const auto guid = Guid::FromString("38645337-a23d-4652-9c78-542163697f95");
    ASSERT_TRUE(guid);
    EXPECT_EQ(guid->Bytes()[0], 0x38);
    EXPECT_EQ(guid->Bytes()[4], 0xA2);
    EXPECT_EQ(guid->Bytes()[15], 0x95);
    EXPECT_EQ(guid->ToString(), "{38645337-A23D-4652-9C78-542163697F95}");
    EXPECT_EQ(Guid::FromString("{38645337-A23D-4652-9C78-542163697F95}"), guid);
}

TEST(Guid, FromStringRefusesMalformedText) {
    const char* bad[] = {
        "",
        "{38645337-A23D-4652-9C78-542163697F95", // one brace
        "38645337-A23D-4652-9C78-542163697F95}",
        "(38645337-A23D-4652-9C78-542163697F95)",
        "38645337A23D-4652-9C78-542163697F95-",
        "38645337-A23D-4652-9C78-542163697F9G",
        "38645337-A23D-4652-9C78-542163697F9",
        "38645337-A23D-4652-9C78-542163697F955",
        "38645337-+23D-4652-9C78-542163697F95",
    };
    for (const char* text : bad) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(Guid::FromString(text));
    }
}

TEST(InterfaceID, MakeInterfaceIDParsesOrThrows) {
    EXPECT_EQ(Fnd::MakeInterfaceID("{38645337-A23D-4652-9C78-542163697F95}").ToString(),
              "{38645337-A23D-4652-9C78-542163697F95}");
    EXPECT_THROW(Fnd::MakeInterfaceID("{38645337-A23D}"), std::invalid_argument);
    EXPECT_THROW(Fnd::MakeInterfaceID(nullptr), std::invalid_argument);
    EXPECT_EQ(Fnd::FndUnknown::GetInterfaceID().ToString(), "{4FE4D60F-96B2-4636-8BF3-6770A8E94E34}");
}

TEST(Date, NowIsInSecondsSince1970) {
    const auto before = static_cast<std::int64_t>(std::time(nullptr));
    const auto now = Fnd::Date::Now();
    const auto after = static_cast<std::int64_t>(std::time(nullptr));
    EXPECT_GE(now.seconds, before);
    EXPECT_LE(now.seconds, after);
}
