#pragma once
// The history of a folder: its ascmhl/ folder of generations and their chain. Loaded once and
// asked per file; appended to with a new generation, which never replaces one that stands.
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "Mhl/Chain.h"
#include "Mhl/Generation.h"

namespace Mhl {

inline constexpr char kHistoryFolderName[] = "ascmhl";
inline constexpr char kChainFileName[] = "ascmhl_chain.xml";

// "0003_A001_2024-05-01_093000Z.mhl" for generation 3 of folder A001 made at that UTC time.
std::string GenerationFileName(long number, const std::string& folderName, std::int64_t secondsSince1970);
// The number a generation file name starts with ("0003_..." gives 3); nullopt for other names.
std::optional<long> GenerationNumberOf(const std::string& fileName);

// The digest a history last recorded for a file, and the generation file that records it.
struct ListedFile {
    FileHash hash;
    std::string generation;
};

class History {
public:
    // The history of root (root/ascmhl): nullopt when there is none, or, with the reason in
    // error, when it cannot be read.
    static std::optional<History> Load(const std::string& root, std::string& error);

    struct GenerationFile {
        long number = 0;
        std::string name;
    };
    // Oldest first.
    const std::vector<GenerationFile>& Generations() const { return generations_; }
    const std::vector<ChainEntry>& Chain() const { return chain_; }

    // Each file by its path relative to root, as the newest generation listing it has it.
    const std::unordered_map<std::string, ListedFile>& Files() const { return files_; }
    const ListedFile* Find(const std::string& relativePath) const;
    // Every ignore pattern any generation names.
    const std::vector<std::string>& IgnorePatterns() const { return ignorePatterns_; }

private:
    std::vector<GenerationFile> generations_;
    std::vector<ChainEntry> chain_;
    std::unordered_map<std::string, ListedFile> files_;
    std::vector<std::string> ignorePatterns_;
};

// Writes generation as the next of root's history (making root/ascmhl when needed) and rewrites
// the chain with it; answers the new file's name. Throws std::system_error when the disk
// refuses, std::runtime_error when the chain there cannot be read.
std::string AppendGeneration(const std::string& root, const Generation& generation, std::int64_t now);

// Copies the generation files of from/ascmhl that to/ascmhl lacks, so that to's history goes on
// from from's. Files that stand in to/ascmhl are left as they are.
void CopyHistory(const std::string& from, const std::string& to);

} // namespace Mhl
