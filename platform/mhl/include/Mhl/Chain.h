#pragma once
// The chain file of a history (ascmhl_chain.xml): every generation in order with its C4 id, so
// that a generation changed or removed after the fact is noticed.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Mhl {

inline constexpr char kChainNamespace[] = "urn:ASC:MHL:DIRECTORY:v2.0";

struct ChainEntry {
    long sequence = 0;
    std::string path; // the generation's file name inside the history folder
    std::string c4;
};

std::string ChainXml(const std::vector<ChainEntry>& entries);

std::optional<std::vector<ChainEntry>> ReadChain(std::string_view bytes, std::string& error);
std::optional<std::vector<ChainEntry>> ReadChainFile(const std::string& path, std::string& error);

} // namespace Mhl
