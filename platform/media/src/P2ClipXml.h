#pragma once
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace Browse {

// What gathering needs of a P2 clip XML: its user name and how it links to the other parts of
// a spanned shot. Ids are upper-cased; an empty id means no link.
struct P2ClipXml {
    std::string userClipName;
    std::string globalClipId;
    std::string top;
    std::string previous;
    std::string next;
    std::int64_t offsetInShot = 0;
};

// Nullopt when the file cannot be read or is refused as XML, with the reason in refusal.
std::optional<P2ClipXml> ReadP2ClipXml(const std::filesystem::path& file, std::string& refusal);

} // namespace Browse
