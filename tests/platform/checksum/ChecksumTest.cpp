#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "Checksum/Checksum.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using Checksum::Algorithm;

constexpr Algorithm kAll[] = {Algorithm::Md5, Algorithm::Xxh128, Algorithm::Xxh3, Algorithm::Xxh64};

// The command a user would check a digest with, and how it names the algorithm.
const char* ToolFor(Algorithm algorithm) {
    switch (algorithm) {
    case Algorithm::Md5:
        return "md5sum";
    case Algorithm::Xxh128:
        return "xxh128sum";
    case Algorithm::Xxh3:
        return "xxhsum -H3";
    case Algorithm::Xxh64:
        return "xxhsum -H1";
    }
    return "";
}

bool HaveTools() {
    return std::system("command -v md5sum xxh128sum xxhsum >/dev/null 2>&1") == 0;
}

// What the tool prints for one file: "hex  name", or "XXH3 (name) = hex" for -H3.
std::string ToolDigest(Algorithm algorithm, const std::string& path) {
    const std::string command = std::string(ToolFor(algorithm)) + " '" + path + "'";
    std::unique_ptr<FILE, decltype(&::pclose)> pipe(::popen(command.c_str(), "r"), &::pclose);
    if (!pipe)
        return {};
    std::string line;
    char buffer[512];
    while (std::fgets(buffer, sizeof buffer, pipe.get()))
        line += buffer;
    const auto equals = line.find(" = ");
    if (equals != std::string::npos)
        line = line.substr(equals + 3);
    return line.substr(0, line.find_first_of(" \n"));
}

std::string DigestInPieces(Algorithm algorithm, const std::string& bytes, std::size_t piece) {
    const auto hasher = Checksum::MakeHasher(algorithm);
    for (std::size_t at = 0; at < bytes.size(); at += piece)
        hasher->Update(bytes.data() + at, std::min(piece, bytes.size() - at));
    return hasher->FinishHex();
}

// Sizes around the internal block boundaries of the xxHash family, an empty file and one past a
// megabyte, each hashed whole, in uneven pieces and by the tools.
TEST(ChecksumTest, DigestsAgreeWithTheCommandLineToolsWholeAndInPieces) {
    if (!HaveTools())
        GTEST_SKIP() << "md5sum, xxh128sum and xxhsum are needed (Debian packages coreutils and xxhash)";
    TempTree tree;
    for (const std::size_t size : {0u, 3u, 16u, 17u, 128u, 129u, 240u, 241u, 1024u, (1u << 20) + 7u}) {
        const std::string name = "f" + std::to_string(size);
        tree.MakeFileOfSize(name, size);
        const std::string path = tree.NativePath(name);
        const std::string bytes = ReadFileBytes(path);
        for (const Algorithm algorithm : kAll) {
            SCOPED_TRACE(std::string(Checksum::NameOf(algorithm)) + " of " + std::to_string(size) + " bytes");
            const std::string whole = Checksum::DigestHex(algorithm, bytes.data(), bytes.size());
            EXPECT_EQ(whole, ToolDigest(algorithm, path));
            EXPECT_EQ(DigestInPieces(algorithm, bytes, 7), whole);
            EXPECT_EQ(DigestInPieces(algorithm, bytes, 65537), whole);
        }
    }
}

TEST(ChecksumTest, AHasherStartsAfreshAfterEachDigest) {
    const std::string text = "frames";
    for (const Algorithm algorithm : kAll) {
        const auto hasher = Checksum::MakeHasher(algorithm);
        EXPECT_EQ(hasher->Kind(), algorithm);
        hasher->Update("leftover", 8);
        hasher->FinishHex();
        hasher->Update(text.data(), text.size());
        EXPECT_EQ(hasher->FinishHex(), Checksum::DigestHex(algorithm, text.data(), text.size()));
        hasher->Update("abandoned", 9);
        hasher->Reset();
        EXPECT_EQ(hasher->FinishHex(), Checksum::DigestHex(algorithm, nullptr, 0));
    }
}

TEST(ChecksumTest, NamesRoundTripAndUnknownNamesAreRefused) {
    for (const Algorithm algorithm : kAll)
        EXPECT_EQ(Checksum::AlgorithmNamed(Checksum::NameOf(algorithm)), algorithm);
    for (const char* name : {"", "MD5", "xxh", "xxh32", "sha1", "md5 "})
        EXPECT_FALSE(Checksum::AlgorithmNamed(name).has_value()) << name;
}

} // namespace
} // namespace igd::test
