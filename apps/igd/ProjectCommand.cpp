#include "ProjectCommand.h"

#include <sys/stat.h>

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "CommandLinePaths.h"
#include "ExitCodes.h"
#include "Proj/Project.h"

namespace igd {
namespace {

constexpr int kBadInput = 2;

struct ProjectOptions {
    std::string file;
    std::string bin;
    bool binGiven = false;
    bool json = false;
};

std::string ProjectFile(const ProjectOptions& options) {
    return Fnd::ToUTF8(AbsolutePath(options.file.empty() ? Proj::DefaultProjectPath() : options.file));
}

// -1: nothing there; otherwise its size (a folder counts as a non-empty entry).
long long SizeOnDisk(const std::string& path) {
    struct stat info {};
    if (::lstat(path.c_str(), &info) != 0)
        return -1;
    return S_ISREG(info.st_mode) ? static_cast<long long>(info.st_size) : 1;
}

int RunInit(const ProjectOptions& options) {
    const std::string path = ProjectFile(options);
    const long long size = SizeOnDisk(path);
    // An empty file is someone's, not a project: making it one would take it over.
    if (size == 0) {
        std::cerr << "igd: " << path << " exists and is not a project; it was left as it is\n";
        return kBadInput;
    }
    try {
        const std::unique_ptr<Proj::Project> project = Proj::Project::Open(path);
        if (size > 0) {
            const std::size_t count = project->Items().size();
            std::cout << path << " is a project already (" << count << (count == 1 ? " item" : " items")
                      << "); nothing was changed\n";
        } else
            std::cout << "created the empty project " << path << "\n";
        return kExitSuccess;
    } catch (const Proj::ProjectError& error) {
        std::cerr << "igd: " << error.what() << "; it was left as it is\n";
        return kBadInput;
    }
}

std::string Utf8(const Fnd::WString& text) {
    return Fnd::ToDisplayUTF8(text);
}

std::string JsonString(const std::string& utf8) {
    std::string out = "\"";
    for (const char c : utf8) {
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\t':
            out += "\\t";
            break;
        case '\r':
            out += "\\r";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                char escape[8];
                std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
                out += escape;
            } else {
                out += c;
            }
        }
    }
    return out + "\"";
}

std::string JsonTime(fluxmediatypes::Time time) {
    return time == fluxmediatypes::kTime_Invalid ? "null" : std::to_string(time);
}

void PrintItemJson(std::ostream& out, const Proj::ProjectItem& item) {
    out << "{\"name\":" << JsonString(Utf8(item.name)) << ",\"path\":" << JsonString(Utf8(item.path))
        << ",\"format\":" << JsonString(Utf8(item.format))
        << ",\"clipGuid\":" << (item.clipGuid.IsZero() ? "null" : JsonString(item.clipGuid.ToString()))
        << ",\"inPoint\":" << JsonTime(item.inPoint) << ",\"outPoint\":" << JsonTime(item.outPoint)
        << ",\"frameRate\":"
        << (item.frameRate == fluxmediatypes::kFrameRate_Zero ? "null" : std::to_string(item.frameRate))
        << ",\"extraPaths\":[";
    for (std::size_t i = 0; i < item.extraPaths.size(); ++i)
        out << (i ? "," : "") << JsonString(Utf8(item.extraPaths[i]));
    out << "],\"metadata\":[";
    for (std::size_t i = 0; i < item.metadata.size(); ++i) {
        const Proj::ItemMetadata& set = item.metadata[i];
        out << (i ? "," : "") << "{\"namespace\":" << JsonString(Utf8(set.namespaceURI))
            << ",\"prefix\":" << JsonString(set.prefix) << ",\"values\":{";
        bool first = true;
        for (const auto& [key, value] : set.values) {
            out << (first ? "" : ",") << JsonString(Utf8(key)) << ":" << JsonString(Fnd::ToValidUTF8(value));
            first = false;
        }
        out << "}}";
    }
    out << "],\"digests\":[";
    for (std::size_t i = 0; i < item.digests.size(); ++i)
        out << (i ? "," : "") << "{\"path\":" << JsonString(Utf8(item.digests[i].path))
            << ",\"algorithm\":" << JsonString(item.digests[i].algorithm)
            << ",\"digest\":" << JsonString(item.digests[i].hex) << "}";
    out << "]}";
}

void PrintItemText(std::ostream& out, const Proj::ProjectItem& item) {
    out << "  " << Utf8(item.name) << "\n";
    out << "    path     " << Utf8(item.path) << "\n";
    if (!item.format.empty())
        out << "    format   " << Utf8(item.format) << "\n";
    if (!item.clipGuid.IsZero())
        out << "    clip     " << item.clipGuid.ToString() << "\n";
    if (item.inPoint != fluxmediatypes::kTime_Invalid || item.outPoint != fluxmediatypes::kTime_Invalid)
        out << "    in/out   "
            << (item.inPoint == fluxmediatypes::kTime_Invalid ? "-" : std::to_string(item.inPoint)) << " / "
            << (item.outPoint == fluxmediatypes::kTime_Invalid ? "-" : std::to_string(item.outPoint))
            << " ticks\n";
    if (item.frameRate != fluxmediatypes::kFrameRate_Zero)
        out << "    frame    " << item.frameRate << " ticks\n";
    for (const Fnd::WString& extra : item.extraPaths)
        out << "    extra    " << Utf8(extra) << "\n";
    for (const Proj::ItemMetadata& set : item.metadata) {
        out << "    " << set.prefix << " <" << Utf8(set.namespaceURI) << ">\n";
        for (const auto& [key, value] : set.values)
            out << "      " << Utf8(key) << ": " << Utf8(value) << "\n";
    }
    for (const Proj::FileDigest& digest : item.digests)
        out << "    " << digest.algorithm << std::string(digest.algorithm.size() < 9 ? 9 - digest.algorithm.size() : 1, ' ')
            << digest.hex << "  " << Utf8(digest.path) << "\n";
}

int RunList(const ProjectOptions& options) {
    const std::string path = ProjectFile(options);
    // Listing must never create a project where there was none.
    if (SizeOnDisk(path) < 0) {
        std::cerr << "igd: there is no project at " << path << "\n";
        return kBadInput;
    }
    std::unique_ptr<Proj::Project> project;
    std::vector<Fnd::WString> bins;
    std::vector<Proj::ProjectItem> items;
    try {
        project = Proj::Project::Open(path);
        const Fnd::WString wanted = Fnd::FromUTF8(options.bin);
        bins = project->Bins();
        if (options.binGiven)
            bins.assign(1, wanted);
        items = project->Items(options.binGiven ? &wanted : nullptr);
    } catch (const Proj::ProjectError& error) {
        std::cerr << "igd: " << error.what() << "\n";
        return kBadInput;
    }

    // Items arrive in import order; each bin lists its own in that order.
    std::unordered_map<Fnd::WString, std::size_t> binIndex;
    for (std::size_t b = 0; b < bins.size(); ++b)
        binIndex.emplace(bins[b], b);
    std::vector<std::vector<const Proj::ProjectItem*>> byBin(bins.size());
    for (const Proj::ProjectItem& item : items)
        if (const auto found = binIndex.find(item.bin); found != binIndex.end())
            byBin[found->second].push_back(&item);

    std::ostream& out = std::cout;
    if (options.json) {
        out << "{\"project\":" << JsonString(path) << ",\"bins\":[";
        for (std::size_t b = 0; b < bins.size(); ++b) {
            out << (b ? "," : "") << "{\"name\":" << JsonString(Utf8(bins[b])) << ",\"items\":[";
            for (std::size_t i = 0; i < byBin[b].size(); ++i) {
                out << (i ? "," : "");
                PrintItemJson(out, *byBin[b][i]);
            }
            out << "]}";
        }
        out << "]}\n";
        return kExitSuccess;
    }
    out << "project " << path << ": " << items.size() << (items.size() == 1 ? " item" : " items") << "\n";
    for (std::size_t b = 0; b < bins.size(); ++b) {
        out << "\n" << (bins[b].empty() ? std::string("(root bin)") : "bin " + Utf8(bins[b])) << "\n";
        if (byBin[b].empty())
            out << "  (empty)\n";
        for (const Proj::ProjectItem* item : byBin[b])
            PrintItemText(out, *item);
    }
    return kExitSuccess;
}

} // namespace

void RegisterProjectCommands(CLI::App& app, CommandTable& table) {
    CLI::App* project = app.add_subcommand("project", "create and inspect project files");
    project->require_subcommand(1);
    const std::string fileHelp = "the project file (default: project.igdproj in the IGD data folder)";

    auto init = std::make_shared<ProjectOptions>();
    CLI::App* initCommand =
        project->add_subcommand("init", "create an empty project; an existing file is never changed");
    initCommand->add_option("file", init->file, fileHelp);
    table.Add(initCommand, [init] { return RunInit(*init); });

    auto list = std::make_shared<ProjectOptions>();
    CLI::App* listCommand = project->add_subcommand("ls", "list the bins and items of a project");
    listCommand->add_option("file", list->file, fileHelp);
    listCommand->add_option("--bin", list->bin, "only this bin (\"\" for the root bin)");
    listCommand->add_flag("--json", list->json, "one JSON document, for programs");
    listCommand->callback([list, listCommand] { list->binGiven = listCommand->count("--bin") > 0; });
    table.Add(listCommand, [list] { return RunList(*list); });
}

} // namespace igd
