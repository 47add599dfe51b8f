#pragma once
// One generation of a folder's history as data: who made it, how, and the digest of each file.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Mhl {

// The hash formats a generation may name, in the order the schema wants them inside a hash.
inline constexpr const char* kHashFormats[] = {"c4", "md5", "sha1", "xxh128", "xxh3", "xxh64"};

inline constexpr const char kActionOriginal[] = "original"; // first hashed here
inline constexpr const char kActionVerified[] = "verified"; // hashed again and found the same
inline constexpr const char kActionFailed[] = "failed";     // hashed again and found different

struct Digest {
    std::string format; // "xxh128", "md5", ...
    std::string value;  // as written: lower-case hex, or a C4 id
    std::string action; // may be empty in histories of other tools
};

struct FileHash {
    std::string path; // relative to the history's folder, '/' between names
    std::optional<std::uint64_t> size;
    std::string lastModified; // xs:dateTime text
    std::vector<Digest> digests;
};

struct Generation {
    std::string creationDate; // xs:dateTime text
    std::string hostname;
    std::string tool;
    std::string toolVersion;
    std::string comment;
    std::string processType = "transfer";
    std::vector<std::string> ignorePatterns;
    std::vector<FileHash> hashes;
};

// A time as xs:dateTime in UTC: "2024-05-01T09:30:00Z".
std::string UtcDateTime(std::int64_t secondsSince1970);

// This tool's own creator info for a generation made now: "igd", its version and the host name.
Generation NewGeneration(const std::string& processType, std::int64_t startedAt, std::int64_t finishedAt);

} // namespace Mhl
