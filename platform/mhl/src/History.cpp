#include "Mhl/History.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include "Fnd/AtomicFile.h"
#include "Mhl/C4Id.h"
#include "Mhl/GenerationXml.h"

namespace Mhl {
namespace {

std::string HistoryFolderOf(const std::string& root) {
    return root + "/" + kHistoryFolderName;
}

bool IsFolder(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::vector<std::string> GenerationFilesIn(const std::string& folder) {
    std::vector<std::string> names;
    DIR* directory = ::opendir(folder.c_str());
    if (!directory)
        throw std::system_error(errno, std::generic_category(), folder);
    while (const dirent* entry = ::readdir(directory)) {
        const std::string name = entry->d_name;
        if (name.size() > 4 && name.ends_with(".mhl") && name[0] != '.')
            names.push_back(name);
    }
    ::closedir(directory);
    return names;
}

std::string ReadWhole(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw std::system_error(errno, std::generic_category(), path);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::string C4IdOfFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw std::system_error(errno, std::generic_category(), path);
    C4Hasher hasher;
    char buffer[1 << 16];
    while (in.read(buffer, sizeof buffer) || in.gcount() > 0)
        hasher.Update(buffer, static_cast<std::size_t>(in.gcount()));
    return hasher.FinishId();
}

// Orders a history's generation files: by the chain's sequence numbers where the chain lists
// them, else by the number their name starts with.
std::vector<History::GenerationFile> Ordered(const std::vector<std::string>& names,
                                             const std::vector<ChainEntry>& chain) {
    std::map<std::string, long> sequenceOf;
    for (const ChainEntry& entry : chain)
        sequenceOf.emplace(entry.path, entry.sequence);
    std::vector<History::GenerationFile> files;
    for (const std::string& name : names) {
        const auto listed = sequenceOf.find(name);
        const std::optional<long> number =
            listed != sequenceOf.end() ? std::optional(listed->second) : GenerationNumberOf(name);
        files.push_back({number.value_or(0), name});
    }
    std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) {
        return a.number != b.number ? a.number < b.number : a.name < b.name;
    });
    return files;
}

} // namespace

std::string GenerationFileName(long number, const std::string& folderName, std::int64_t secondsSince1970) {
    const std::time_t seconds = static_cast<std::time_t>(secondsSince1970);
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    char stamp[32];
    std::strftime(stamp, sizeof stamp, "%Y-%m-%d_%H%M%S", &utc);
    char number4[24];
    std::snprintf(number4, sizeof number4, "%04ld", number);
    return std::string(number4) + "_" + folderName + "_" + stamp + "Z.mhl";
}

std::optional<long> GenerationNumberOf(const std::string& fileName) {
    std::size_t digits = 0;
    while (digits < fileName.size() && digits < 9 && fileName[digits] >= '0' && fileName[digits] <= '9')
        ++digits;
    if (digits == 0 || digits >= fileName.size() || fileName[digits] != '_')
        return std::nullopt;
    return std::stol(fileName.substr(0, digits));
}

std::optional<History> History::Load(const std::string& root, std::string& error) {
    const std::string folder = HistoryFolderOf(root);
    if (!IsFolder(folder))
        return std::nullopt;
    History history;
    try {
        const std::string chainPath = folder + "/" + kChainFileName;
        struct stat status {};
        if (::stat(chainPath.c_str(), &status) == 0) {
            std::optional<std::vector<ChainEntry>> chain = ReadChainFile(chainPath, error);
            if (!chain)
                return std::nullopt;
            history.chain_ = std::move(*chain);
        }
        history.generations_ = Ordered(GenerationFilesIn(folder), history.chain_);
    } catch (const std::system_error& failure) {
        error = failure.what();
        return std::nullopt;
    }
    std::set<std::string> patterns;
    for (const GenerationFile& file : history.generations_) {
        std::optional<Generation> generation = ReadGenerationFile(folder + "/" + file.name, error);
        if (!generation)
            return std::nullopt;
        for (std::string& pattern : generation->ignorePatterns)
            if (patterns.insert(pattern).second)
                history.ignorePatterns_.push_back(std::move(pattern));
        for (FileHash& hash : generation->hashes) {
            // A check that found a file changed does not make the change its new truth.
            const bool failedOnly =
                !hash.digests.empty() &&
                std::all_of(hash.digests.begin(), hash.digests.end(),
                            [](const Digest& digest) { return digest.action == kActionFailed; });
            if (failedOnly && history.files_.count(hash.path))
                continue;
            ListedFile& listed = history.files_[hash.path];
            listed.hash = std::move(hash);
            listed.generation = file.name;
        }
    }
    return history;
}

const ListedFile* History::Find(const std::string& relativePath) const {
    const auto found = files_.find(relativePath);
    return found == files_.end() ? nullptr : &found->second;
}

std::string AppendGeneration(const std::string& root, const Generation& generation, std::int64_t now) {
    const std::string folder = HistoryFolderOf(root);
    if (::mkdir(folder.c_str(), 0777) != 0 && errno != EEXIST)
        throw std::system_error(errno, std::generic_category(), folder);

    const std::string chainPath = folder + "/" + kChainFileName;
    std::vector<ChainEntry> chain;
    struct stat status {};
    if (::stat(chainPath.c_str(), &status) == 0) {
        std::string error;
        std::optional<std::vector<ChainEntry>> read = ReadChainFile(chainPath, error);
        if (!read)
            throw std::runtime_error(error);
        chain = std::move(*read);
    }
    const std::vector<History::GenerationFile> standing = Ordered(GenerationFilesIn(folder), chain);
    long number = standing.empty() ? 1 : standing.back().number + 1;

    const std::string text = GenerationXml(generation);
    const std::string folderName = root.substr(root.find_last_of('/') + 1);
    std::string name = GenerationFileName(number, folderName, now);
    // Another writer may have taken the number since the folder was read: take the next one.
    while (!Fnd::WriteFileAtomically(folder + "/" + name, text, false))
        name = GenerationFileName(++number, folderName, now);

    // The chain names every generation there, those another tool left out of it included.
    std::set<std::string> chained;
    for (const ChainEntry& entry : chain)
        chained.insert(entry.path);
    for (const History::GenerationFile& file : Ordered(GenerationFilesIn(folder), chain))
        if (!chained.count(file.name))
            chain.push_back(
                {file.name == name ? number : file.number, file.name, C4IdOfFile(folder + "/" + file.name)});
    std::stable_sort(chain.begin(), chain.end(),
                     [](const ChainEntry& a, const ChainEntry& b) { return a.sequence < b.sequence; });
    Fnd::WriteFileAtomically(chainPath, ChainXml(chain));
    return name;
}

void CopyHistory(const std::string& from, const std::string& to) {
    const std::string source = HistoryFolderOf(from);
    const std::string target = HistoryFolderOf(to);
    if (!IsFolder(source))
        return;
    if (::mkdir(target.c_str(), 0777) != 0 && errno != EEXIST)
        throw std::system_error(errno, std::generic_category(), target);
    for (const std::string& name : GenerationFilesIn(source))
        Fnd::WriteFileAtomically(target + "/" + name, ReadWhole(source + "/" + name), false);
    // The chain comes along only where there is none yet; AppendGeneration completes it.
    const std::string chain = source + "/" + kChainFileName;
    struct stat status {};
    if (::stat(chain.c_str(), &status) == 0)
        Fnd::WriteFileAtomically(target + "/" + kChainFileName, ReadWhole(chain), false);
}

} // namespace Mhl
