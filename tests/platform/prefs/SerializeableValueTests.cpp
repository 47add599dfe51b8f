#include <gtest/gtest.h>

#include "Proj/SerializeableValue.h"

namespace Proj {
namespace {

TEST(PreferenceText, ParsesWhatItFormatsAndNothingElse) {
    const struct {
        ValueKind kind;
        const char* text;
        std::optional<PreferenceData> expected;
    } cases[] = {
        {ValueKind::kBool, "false", PreferenceData(false)},
        {ValueKind::kBool, "yes", std::nullopt},
        {ValueKind::kUInt32, "4294967295", PreferenceData(std::uint32_t{4294967295u})},
        {ValueKind::kUInt32, "4294967296", std::nullopt},
        {ValueKind::kUInt32, "-1", std::nullopt},
        {ValueKind::kUInt32, "12abc", std::nullopt},
        {ValueKind::kInt32, "-2147483648", PreferenceData(std::int32_t{-2147483647 - 1})},
        {ValueKind::kInt32, " 1", std::nullopt},
        {ValueKind::kFloat, "0.68", PreferenceData(0.68f)},
        {ValueKind::kFloat, "nan", std::nullopt},
        {ValueKind::kString, "", PreferenceData(std::string())},
        {ValueKind::kString, "bad \xC3\x28 byte", std::nullopt},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(KindName(c.kind)) + " \"" + c.text + "\"");
        const auto parsed = ParsePreferenceData(c.kind, c.text);
        EXPECT_EQ(parsed, c.expected);
        if (parsed) {
            EXPECT_EQ(ParsePreferenceData(c.kind, FormatPreferenceData(*parsed)), parsed);
        }
    }
}

} // namespace
} // namespace Proj
