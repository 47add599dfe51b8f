#include <gtest/gtest.h>

#include <string>

#include "Mhl/C4Id.h"

namespace igd::test {
namespace {

// The id of no bytes, worked out from the definition: SHA-512 of the empty input as one
// big-endian number, in base 58 over 123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz,
// padded to 88 digits with the zero digit '1', after "c4".
constexpr char kEmptyId[] =
    "c459dsjfscH38cYeXXYogktxf4Cd9ibshE3BHUo6a58hBXmRQdZrAkZzsWcbWtDg5oQstpDuni4Hirj75GEmTc1sFT";

TEST(C4Id, IsTheBase58OfTheSha512AsTheStandardDefinesIt) {
    EXPECT_EQ(Mhl::C4IdOf(""), kEmptyId);
    // A digest whose number is small shows the padding with the zero digit.
    unsigned char small[64] = {};
    small[63] = 57;
    EXPECT_EQ(Mhl::C4IdOfDigest(small), "c4" + std::string(87, '1') + "z");
}

TEST(C4Id, StreamedInPiecesGivesTheIdOfTheWhole) {
    const std::string bytes(100000, 'm');
    Mhl::C4Hasher hasher;
    for (std::size_t at = 0; at < bytes.size(); at += 777)
        hasher.Update(bytes.data() + at, std::min<std::size_t>(777, bytes.size() - at));
    const std::string id = hasher.FinishId();
    EXPECT_EQ(id, Mhl::C4IdOf(bytes));
    EXPECT_EQ(id.size(), Mhl::kC4IdLength);
    EXPECT_NE(id, kEmptyId);
    EXPECT_EQ(hasher.FinishId(), kEmptyId) << "a finished hasher starts over";
}

} // namespace
} // namespace igd::test
