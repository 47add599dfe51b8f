#include "VerifyCommand.h"

#include <unistd.h>

#include <ctime>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "ExitCodes.h"
#include "Fnd/PathUtils.h"
#include "Fnd/WString.h"
#include "Mhl/FileDigest.h"
#include "Mhl/FolderVerification.h"
#include "OutputFormat.h"

namespace igd {
namespace {

struct VerifyOptions {
    std::string folder;
    bool json = false;
    bool record = false;
};

std::string Shown(const std::string& path) {
    return Fnd::ToDisplayUTF8(Fnd::FromUTF8(path));
}

// On a terminal a percentage that rewrites itself; otherwise a line now and then, so a log shows
// that a long check is alive without a line per file.
class VerifyProgress {
public:
    void operator()(std::size_t done, std::size_t total) {
        if (terminal_) {
            const std::size_t percent = total ? done * 100 / total : 100;
            if (percent != lastPercent_ || done == total)
                std::cerr << "\rverifying: " << percent << "% (" << done << " of " << total << " files)"
                          << (done == total ? "\n" : "") << std::flush;
            lastPercent_ = percent;
        } else if (done % kFilesPerLine == 0 && done != total) {
            std::cerr << "verifying: " << done << " of " << total << " files\n";
        }
    }

private:
    static constexpr std::size_t kFilesPerLine = 1000;
    bool terminal_ = ::isatty(STDERR_FILENO) == 1;
    std::size_t lastPercent_ = 101;
};

void PrintJsonList(const char* name, const std::vector<std::string>& paths) {
    std::cout << ",\"" << name << "\":[";
    for (std::size_t i = 0; i < paths.size(); ++i)
        std::cout << (i ? "," : "") << JsonString(Shown(paths[i]));
    std::cout << "]";
}

std::vector<std::string> PathsOf(const std::vector<Mhl::FileHash>& hashes) {
    std::vector<std::string> paths;
    for (const Mhl::FileHash& hash : hashes)
        paths.push_back(hash.path);
    return paths;
}

void PrintCheck(const Mhl::FolderCheck& check, bool json, const std::string& recorded) {
    if (json) {
        std::cout << "{\"event\":\"verify\",\"matched\":" << check.matched.size();
        PrintJsonList("altered", PathsOf(check.altered));
        PrintJsonList("missing", check.missing);
        PrintJsonList("new", check.added);
        PrintJsonList("unreadable", check.unreadable);
        PrintJsonList("unchecked", check.uncheckable);
        std::cout << ",\"recorded\":" << JsonString(recorded) << "}\n";
        return;
    }
    for (const Mhl::FileHash& hash : check.altered)
        std::cout << "altered  " << Shown(hash.path) << "\n";
    for (const std::string& path : check.missing)
        std::cout << "missing  " << Shown(path) << "\n";
    for (const std::string& path : check.added)
        std::cout << "new  " << Shown(path) << "\n";
    for (const std::string& problem : check.unreadable)
        std::cout << "unreadable  " << Shown(problem) << "\n";
    for (const std::string& path : check.uncheckable)
        std::cout << "unchecked  " << Shown(path) << ": its history has no digest igd computes\n";
    std::cout << check.matched.size() << " matched, " << check.altered.size() << " altered, "
              << check.missing.size() << " missing, " << check.added.size() << " new\n";
    if (!recorded.empty())
        std::cout << "recorded as " << Shown(recorded) << "\n";
}

// The new generation: each file checked, and each new file hashed for the first time.
Mhl::Generation Recorded(const std::string& folder, Mhl::FolderCheck& check, std::int64_t startedAt) {
    Mhl::Generation generation = Mhl::NewGeneration("in-place", startedAt, std::time(nullptr));
    generation.ignorePatterns = {Mhl::kHistoryFolderName};
    generation.hashes = check.matched;
    generation.hashes.insert(generation.hashes.end(), check.altered.begin(), check.altered.end());
    const std::string format =
        check.matched.empty() ? "xxh128" : check.matched.front().digests.front().format;
    for (Mhl::FileHash& hash : Mhl::HashAdded(folder, check.added, format, check.unreadable))
        generation.hashes.push_back(std::move(hash));
    return generation;
}

int RunVerify(const VerifyOptions& options) {
    const std::string folder = Fnd::ToUTF8(Fnd::PathUtils::ToNormalizedPath(Fnd::FromUTF8(options.folder)));
    if (!Fnd::PathUtils::IsDirectory(Fnd::FromUTF8(folder))) {
        std::cerr << "igd verify: " << Shown(options.folder) << " is not a folder\n";
        return kExitBadInput;
    }
    const std::int64_t startedAt = std::time(nullptr);
    std::string error;
    const std::optional<Mhl::History> history = Mhl::History::Load(folder, error);
    if (!history) {
        std::cerr << "igd verify: "
                  << (error.empty() ? "no ASC MHL history in " + Shown(folder) + " (no " +
                                          Mhl::kHistoryFolderName + " folder)"
                                    : "the history cannot be read: " + Shown(error))
                  << "\n";
        return kExitFailure;
    }
    VerifyProgress progress;
    Mhl::FolderCheck check = Mhl::CheckFolder(folder, *history, std::ref(progress));
    std::string recorded;
    if (options.record) {
        try {
            const Mhl::Generation generation = Recorded(folder, check, startedAt);
            if (!generation.hashes.empty())
                recorded = Mhl::AppendGeneration(folder, generation, std::time(nullptr));
        } catch (const std::exception& failure) {
            std::cerr << "igd verify: the check was not recorded: " << Shown(failure.what()) << "\n";
            PrintCheck(check, options.json, recorded);
            return kExitFailure;
        }
    }
    PrintCheck(check, options.json, recorded);
    return check.AllMatch() ? kExitSuccess : kExitFailure;
}

} // namespace

void RegisterVerifyCommand(CLI::App& app, CommandTable& table) {
    auto options = std::make_shared<VerifyOptions>();
    CLI::App* verify = app.add_subcommand(
        "verify", "hash a folder's files again from the disk and compare them with its ASC MHL history");
    verify->add_option("folder", options->folder, "a folder holding an ascmhl history")->required();
    verify->add_flag("--json", options->json, "print the result as one JSON line");
    verify->add_flag("--record", options->record, "add the result to the history as a new generation");
    table.Add(verify, [options] { return RunVerify(*options); });
}

} // namespace igd
