#include "PresetsCommand.h"

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include "CommandLinePaths.h"
#include "ExitCodes.h"
#include "Fnd/AtomicFile.h"
#include "Fnd/PathUtils.h"
#include "IGD/MetadataPresetRules.h"
#include "QL/FilePresetService.h"
#include "QL/IQLPresetManager.h"
#include "QL/PresetDocument.h"
#include "QL/PresetFileReader.h"
#include "QL/PresetFileTypes.h"
#include "QL/PresetFileWriter.h"
#include "QL/PresetNames.h"
#include "QL/PresetLoadWarnings.h"
#include "QL/PresetService.h"

namespace igd {
namespace {

constexpr int kFailed = 1;
constexpr int kBadInput = 2;

struct PresetsOptions {
    std::string category; // empty: both
    std::string name;
    std::string file;
    bool force = false;
};

struct Found {
    Fnd::InterfaceRef<QL::IQLPreset> preset;
    QL::_QLPresetCategory category = QL::kQLPresetCategoryRename;
};

const char* CategoryWord(QL::_QLPresetCategory category) {
    return category == QL::kQLPresetCategoryMetadata ? "metadata" : "rename";
}

std::vector<QL::_QLPresetCategory> Categories(const std::string& word) {
    if (word == "rename")
        return {QL::kQLPresetCategoryRename};
    if (word == "metadata")
        return {QL::kQLPresetCategoryMetadata};
    return {QL::kQLPresetCategoryRename, QL::kQLPresetCategoryMetadata};
}

Fnd::InterfaceRef<QL::IQLPresetManager> Manager(QL::_QLPresetCategory category) {
    if (!QL::GetPresetService())
        QL::InstallFilePresetService();
    return QL::InstantiateQLPresetManager(category);
}

// Skipped files are said on stderr as they are met, so a listing still shows everything else.
void WarnOnStderr() {
    QL::SetPresetLoadWarningHandler([](const QL::PresetLoadWarning& warning) {
        std::cerr << "igd: preset file \"" << warning.path << "\" " << warning.reason << "\n";
    });
}

// Names become file names: the same characters the service refuses are refused here, before
// anything is looked up, so the user reads why.
bool CheckName(const std::string& name) {
    // The rule of every preset name; the longer extension of the two categories is the strict one.
    const std::string problem = QL::PresetNameProblem(Fnd::FromUTF8(name), QL::kQLPresetCategoryMetadata);
    if (!problem.empty()) {
        std::cerr << "igd: \"" << name << "\" is not a preset name: " << problem << "\n";
        return false;
    }
    return true;
}

std::string FieldLabel(QL::_QLPresetFieldType type) {
    switch (type) {
    case QL::kQLFieldAutoIncrement:
        return "Auto Increment";
    case QL::kQLFieldCustomText:
        return "Custom Text";
    case QL::kQLFieldCreationDate:
        return "Date (Creation Date)";
    case QL::kQLFieldIngestDate:
        return "Date (Ingest Date)";
    case QL::kQLFieldCreationTime:
        return "Time (Creation Time)";
    case QL::kQLFieldIngestTime:
        return "Time (Ingest Time)";
    case QL::kQLFieldFileName:
        return "File Name";
    case QL::kQLFieldMetadata:
        return "Metadata";
    case QL::kQLFieldUserDefinedAutoIncrement:
        return "Custom Auto Increment";
    }
    return "Field type " + std::to_string(type);
}

// User presets first: where a user preset and a shipped one share a name, the user's is the one
// they mean.
std::vector<Found> FindByName(const std::string& name, const std::string& category) {
    const Fnd::WString wanted = Fnd::FromUTF8(name);
    std::vector<Found> user, system;
    for (auto each : Categories(category)) {
        auto manager = Manager(each);
        for (const auto& preset : manager->GetUserPresets(false))
            if (preset->GetName(true) == wanted)
                user.push_back({preset, each});
        for (const auto& preset : manager->GetSystemPresets())
            if (preset->GetName(true) == wanted)
                system.push_back({preset, each});
    }
    user.insert(user.end(), system.begin(), system.end());
    return user;
}

std::optional<Found> FindOne(const std::string& name, const std::string& category) {
    const auto found = FindByName(name, category);
    if (found.empty()) {
        std::cerr << "igd: no " << (category.empty() ? "" : category + " ") << "preset is named \"" << name
                  << "\"\n";
        return std::nullopt;
    }
    if (category.empty() && found.size() > 1) {
        for (const auto& other : found)
            if (other.category != found.front().category) {
                std::cerr << "igd: both a rename and a metadata preset are named \"" << name
                          << "\"; say which with --category\n";
                return std::nullopt;
            }
    }
    return found.front();
}

int RunList(const PresetsOptions& options) {
    WarnOnStderr();
    for (auto category : Categories(options.category)) {
        auto manager = Manager(category);
        const auto system = manager->GetSystemPresets();
        const auto user = manager->GetUserPresets(false);
        std::cout << (category == QL::kQLPresetCategoryMetadata ? "Metadata" : "Rename") << " presets:\n";
        if (system.empty() && user.empty())
            std::cout << "  (none)\n";
        for (const auto& preset : system)
            std::cout << "  " << Fnd::ToDisplayUTF8(preset->GetName(true)) << "  (system)\n";
        for (const auto& preset : user)
            std::cout << "  " << Fnd::ToDisplayUTF8(preset->GetName(true)) << "  " << Fnd::ToDisplayUTF8(preset->GetPath())
                      << "\n";
    }
    return kExitSuccess;
}

int RunShow(const PresetsOptions& options) {
    if (!CheckName(options.name))
        return kBadInput;
    WarnOnStderr();
    const auto found = FindOne(options.name, options.category);
    if (!found)
        return kFailed;
    const auto& preset = found->preset;
    std::cout << Fnd::ToDisplayUTF8(preset->GetName(true)) << "\n"
              << "  category: " << CategoryWord(found->category)
              << (preset->IsUserPreset() ? " (user preset)" : " (system preset)") << "\n"
              << "  file:     " << Fnd::ToDisplayUTF8(preset->GetPath()) << "\n";
    const auto fields = preset->GetFields();
    std::cout << "  fields:" << (fields.empty() ? " none" : "") << "\n";
    int number = 0;
    for (const auto& field : fields) {
        std::ostringstream line;
        line << "    " << ++number << "  ";
        if (field->GetType() == QL::kQLFieldMetadata) {
            line << std::left << std::setw(22) << Fnd::ToDisplayUTF8(field->GetKey())
                 << (field->GetRequired() ? "required  " : "          ");
            if (!field->GetFormat().empty())
                line << "\"" << Fnd::ToDisplayUTF8(field->GetFormat()) << "\"";
        } else {
            line << std::left << std::setw(22) << FieldLabel(field->GetType())
                 << Fnd::ToDisplayUTF8(field->GetFormat());
        }
        std::string text = line.str();
        text.erase(text.find_last_not_of(' ') + 1);
        std::cout << text << "\n";
    }
    return kExitSuccess;
}

int RunImport(const PresetsOptions& options) {
    const std::string path = Fnd::ToUTF8(AbsolutePath(options.file));
    // Read first, only to learn the category and to say plainly what is wrong with a bad file.
    const auto read = QL::ReadPresetFile(path);
    if (!read) {
        std::cerr << "igd: cannot import \"" << path << "\": the file " << read.error << "\n";
        return kBadInput;
    }
    // A key or name the dialog would refuse to save must not come in through a file either.
    if (read.document->category == QL::kQLPresetCategoryMetadata) {
        const auto problem =
            IGD::CheckMetadataPreset(read.document->name, QL::MakePresetFields(read.document->fields));
        if (problem) {
            std::cerr << "igd: cannot import \"" << path << "\": " << Fnd::ToDisplayUTF8(problem.text) << "\n";
            return kBadInput;
        }
    }
    std::string refusal;
    QL::SetPresetLoadWarningHandler([&](const QL::PresetLoadWarning& warning) {
        if (warning.path == path)
            refusal = warning.reason;
        else
            std::cerr << "igd: preset file \"" << warning.path << "\" " << warning.reason << "\n";
    });
    auto manager = Manager(read.document->category);
    std::vector<Fnd::WString> before;
    for (const auto& preset : manager->GetUserPresets(false))
        before.push_back(preset->GetPath());
    const auto installed = manager->InstallPreset(Fnd::FromUTF8(path));
    if (!installed) {
        std::cerr << "igd: cannot import \"" << path << "\": the file "
                  << (refusal.empty() ? std::string("could not be installed") : refusal) << "\n";
        return kFailed;
    }
    const std::string name = Fnd::ToDisplayUTF8(installed->GetName(true));
    const bool existed = std::find(before.begin(), before.end(), installed->GetPath()) != before.end();
    if (existed)
        std::cout << "already installed: " << CategoryWord(read.document->category) << " preset \"" << name
                  << "\"  " << Fnd::ToDisplayUTF8(installed->GetPath()) << "\n";
    else
        std::cout << "installed " << CategoryWord(read.document->category) << " preset \"" << name << "\"  "
                  << Fnd::ToDisplayUTF8(installed->GetPath()) << "\n";
    if (installed->GetName(true) != read.document->name)
        std::cout << "  (a different preset is already named \"" << Fnd::ToDisplayUTF8(read.document->name)
                  << "\")\n";
    return kExitSuccess;
}

int RunExport(const PresetsOptions& options) {
    if (!CheckName(options.name))
        return kBadInput;
    WarnOnStderr();
    const auto found = FindOne(options.name, options.category);
    if (!found)
        return kFailed;
    const auto document =
        QL::MakePresetDocument(found->category, found->preset->GetName(true), found->preset->GetFields());
    Fnd::WString target = AbsolutePath(options.file);
    if (options.file.back() == '/' && !Fnd::PathUtils::IsDirectory(target)) {
        std::cerr << "igd: no folder \"" << Fnd::ToDisplayUTF8(target) << "\" to export into\n";
        return kBadInput;
    }
    if (Fnd::PathUtils::IsDirectory(target))
        target = Fnd::PathUtils::CombinePaths(target, document.name +
                                                          (found->category == QL::kQLPresetCategoryMetadata
                                                               ? QL::GetMetadataPresetFileExtension()
                                                               : QL::GetRenamePresetFileExtension()));
    const std::string path = Fnd::ToUTF8(target);
    try {
        if (!Fnd::WriteFileAtomically(path, QL::SerializePresetDocument(document), options.force)) {
            std::cerr << "igd: \"" << path << "\" exists; add --force to replace it\n";
            return kFailed;
        }
    } catch (const std::system_error& e) {
        std::cerr << "igd: cannot write \"" << path << "\": " << e.code().message() << "\n";
        return kFailed;
    }
    std::cout << "exported " << CategoryWord(found->category) << " preset \"" << options.name << "\" to "
              << path << "\n";
    return kExitSuccess;
}

int RunDelete(const PresetsOptions& options) {
    if (!CheckName(options.name))
        return kBadInput;
    WarnOnStderr();
    const auto found = FindOne(options.name, options.category);
    if (!found)
        return kFailed;
    if (!found->preset->IsUserPreset()) {
        std::cerr << "igd: \"" << options.name << "\" is a system preset; it cannot be deleted\n";
        return kFailed;
    }
    const std::string path = Fnd::ToUTF8(found->preset->GetPath());
    const QL::QLPresetStatus status = Manager(found->category)->DeletePreset(found->preset);
    if (!QL::PresetSucceeded(status)) {
        std::cerr << "igd: cannot delete \"" << path << "\" (status " << status << ")\n";
        return kFailed;
    }
    std::cout << "deleted " << CategoryWord(found->category) << " preset \"" << options.name << "\"  " << path
              << "\n";
    return kExitSuccess;
}

void AddCategoryOption(CLI::App* command, PresetsOptions& options) {
    command->add_option("--category", options.category, "rename or metadata, where a name could be either")
        ->check(CLI::IsMember({"rename", "metadata"}));
}

} // namespace

void RegisterPresetsCommand(CLI::App& app, CommandTable& table) {
    auto options = std::make_shared<PresetsOptions>();
    CLI::App* presets = app.add_subcommand("presets", "rename and metadata presets");
    presets->require_subcommand(1);

    CLI::App* list = presets->add_subcommand("list", "the system and user presets");
    list->add_option("category", options->category, "rename or metadata (default: both)")
        ->check(CLI::IsMember({"rename", "metadata"}));
    table.Add(list, [options] { return RunList(*options); });

    CLI::App* show = presets->add_subcommand("show", "the fields of a preset");
    show->add_option("name", options->name, "the preset's name")->required();
    AddCategoryOption(show, *options);
    table.Add(show, [options] { return RunShow(*options); });

    CLI::App* import = presets->add_subcommand("import", "install a preset file as a user preset");
    import->add_option("file", options->file, "a preset file")->required();
    table.Add(import, [options] { return RunImport(*options); });

    CLI::App* exportCommand = presets->add_subcommand("export", "write a preset to a file");
    exportCommand->add_option("name", options->name, "the preset's name")->required();
    exportCommand->add_option("file", options->file, "the file to write, or a folder")->required();
    exportCommand->add_flag("--force", options->force, "replace the file if it exists");
    AddCategoryOption(exportCommand, *options);
    table.Add(exportCommand, [options] { return RunExport(*options); });

    CLI::App* remove = presets->add_subcommand("delete", "delete a user preset and its file");
    remove->add_option("name", options->name, "the preset's name")->required();
    AddCategoryOption(remove, *options);
    table.Add(remove, [options] { return RunDelete(*options); });
}

} // namespace igd
