#include "IngestCommand.h"

#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Assignment.h"
#include "CardsCommand.h"
#include "CommandChoices.h"
#include "CommandLinePaths.h"
#include "ExitCodes.h"
#include "Fnd/InteractionDriver.h"
#include "IGD/IngestSequence.h"
#include "IngestCheck.h"
#include "NumberOption.h"
#include "Mid/Project.h"
#include "PresetLookup.h"
#include "Proj/Project.h"
#include "QL/CopySetting.h"
#include "QL/Engine/DestinationLocks.h"
#include "ResumeCommand.h"
#include "ServiceRunner.h"
#include "TemplateValues.h"
#include "TerminalInteractionDriver.h"
#include "TranscodeChoice.h"

namespace igd {
namespace {

struct IngestOptions {
    std::vector<std::string> sources;
    std::vector<std::string> destinations;
    std::string subFolder;
    std::string verify; // none given: the checksum the preferences name
    std::string renamePreset;
    std::string metadataPreset;
    std::vector<std::string> values;
    std::string renameScope = "all";
    std::string metadataScope = "all";
    std::optional<std::uint32_t> startNumber;
    std::string project;
    std::string bin;
    std::string onConflict = "ask";
    std::string stitch;
    std::vector<std::string> panelValues;
    bool json = false;
};

// Restores the default driver, which cancels every question, when the command ends.
struct TerminalQuestions {
    TerminalQuestions(const std::string& onConflict, PanelValues panelValues) {
        Fnd::SetInteractionDriver(std::make_shared<TerminalInteractionDriver>(
            std::cin, std::cerr, isatty(STDIN_FILENO) != 0, ConflictActionOf(onConflict), std::move(panelValues)));
    }
    ~TerminalQuestions() { Fnd::SetInteractionDriver(nullptr); }
};

std::uint32_t Scope(const std::string& name) {
    return name == "primary" ? 1 : 0;
}

// The templates named on the command line, as copies: values given with --set must not change
// the presets that the dialog and other runs see.
std::string ChooseTemplates(const IngestOptions& options, IGD::IngestChoices& choices) {
    const auto find = [](QL::_QLPresetCategory category, const std::string& name, IGD::PresetRef& preset,
                         const char* kind) -> std::string {
        if (name.empty())
            return {};
        const IGD::PresetRef found = FindPreset(category, Fnd::FromUTF8(name));
        if (!found)
            return std::string("no ") + kind + " preset is named \"" + name + "\"";
        preset = found->ClonePreset(true);
        return {};
    };
    if (std::string error =
            find(QL::kQLPresetCategoryRename, options.renamePreset, choices.renamePreset, "rename");
        !error.empty())
        return error;
    // Without a template named here, the one the dialog would use: renaming on in the stored
    // settings, with the preset they point at.
    if (options.renamePreset.empty())
        if (const IGD::PresetRef stored = IGD::StoredRenameTemplate())
            choices.renamePreset = stored->ClonePreset(true);
    if (std::string error =
            find(QL::kQLPresetCategoryMetadata, options.metadataPreset, choices.metadataPreset, "metadata");
        !error.empty())
        return error;
    choices.renameScope = Scope(options.renameScope);
    choices.metadataScope = Scope(options.metadataScope);
    return SetTemplateValues(options.values, {choices.renamePreset, choices.metadataPreset});
}

// Another igd writing to a destination is waited for, and said so: the existing files are then
// settled by --on-conflict against what it wrote.
QL::Engine::DestinationLocks LockDestinations(const std::vector<Fnd::WString>& destinations) {
    std::vector<std::string> folders;
    for (const Fnd::WString& destination : destinations) {
        std::error_code error;
        const std::filesystem::path real = std::filesystem::weakly_canonical(Fnd::ToUTF8(destination), error);
        folders.push_back(error ? Fnd::ToUTF8(destination) : real.string());
    }
    return QL::Engine::DestinationLocks::Take(folders, [](const std::string& busy) {
        std::cerr << "igd: another igd is writing to " << busy << "; waiting for it to finish\n";
    });
}

int RunIngest(const IngestOptions& options) {
    std::vector<Fnd::WString> sources;
    for (const std::string& source : options.sources)
        sources.push_back(AbsolutePath(source));
    IGD::IngestChoices choices;
    for (const std::string& argument : options.destinations) {
        const DestinationArgument destination = SplitDestinationArgument(argument);
        choices.destinations.push_back(AbsolutePath(destination.folder));
        std::optional<IGD::DestinationTranscode> transcode;
        if (!destination.preset.empty()) {
            transcode.emplace();
            if (const std::string error = FindTranscodePreset(destination.preset, *transcode); !error.empty()) {
                std::cerr << "igd: " << error << "\n";
                return kExitBadInput;
            }
        }
        choices.transcodes.push_back(std::move(transcode));
    }
    if (!options.stitch.empty()) {
        if (choices.transcodes.empty() || !choices.transcodes.front()) {
            std::cerr << "igd: --stitch needs the first destination to transcode (--to FOLDER:PRESET)\n";
            return kExitBadInput;
        }
        choices.stitchName = Fnd::FromUTF8(options.stitch);
    }
    choices.subFolder = Fnd::FromUTF8(options.subFolder);
    choices.verifyMode = options.verify.empty() ? IGD::StoredChecksumVerifyMode() : VerifyModeOf(options.verify);
    ServiceRunOptions run;
    run.projectPath =
        options.project.empty() ? Proj::DefaultProjectPath() : Fnd::ToUTF8(AbsolutePath(options.project));
    Mid::SetProject(Proj::MakeProjectOfFile(run.projectPath));
    try {
        // A project that cannot take the items is better known before hours of copying.
        Proj::Project::Open(run.projectPath);
    } catch (const Proj::ProjectError& error) {
        std::cerr << "igd: " << error.what() << "\n";
        return kExitBadInput;
    }
    if (std::string error = ChooseTemplates(options, choices); !error.empty()) {
        std::cerr << "igd: " << error << "\n";
        return kExitBadInput;
    }
    std::vector<Fnd::WString> made;
    if (const std::string error = CheckIngestInput(sources, choices.destinations, made); !error.empty()) {
        RemoveMadeFolders(made);
        std::cerr << "igd: " << error << "\n";
        return kExitBadInput;
    }
    choices.startNumber = options.startNumber;
    // Held to the end: what is planned below stays true while this process writes.
    const QL::Engine::DestinationLocks locks = LockDestinations(choices.destinations);

    for (const Fnd::WString& destination : choices.destinations)
        run.destinations.push_back(Fnd::ToDisplayUTF8(destination));
    run.bin = Fnd::FromUTF8(options.bin);
    run.json = options.json;
    run.setAsideUnreadableJournal = true;
    PanelValues panelValues;
    for (const std::string& value : options.panelValues) {
        const auto split = SplitAssignment(value);
        if (!split) {
            std::cerr << "igd: --panel takes KEY=VALUE, not \"" << value << "\"\n";
            return kExitBadInput;
        }
        panelValues[split->first] = split->second;
    }
    const TerminalQuestions questions(options.onConflict, std::move(panelValues));
    std::vector<IGD::IngestDialogDataRef> sessions = IGD::GatherIngestSources(IGD::DistinctIngestSources(sources));
    const bool clipsLeftOut = ReportRefusedCardFiles("igd ingest");
    // With nothing gathered the handler still runs once, to say so as the dialog would.
    if (sessions.empty())
        sessions.push_back(IGD::IngestDialogDataRef::Query(IGD::CreateIngestDialogData()));
    IGD::ApplyIngestChoices(sessions, choices);
    if (!IGD::CheckIngestSessions(sessions, Fnd::Date::Now())) {
        RemoveMadeFolders(made);
        return kExitFailure;
    }
    const std::optional<QL::MinimumMetadataResult> minimumMetadata = IGD::AskMinimumMetadata(sessions);
    if (!minimumMetadata || !IGD::CompleteIngestSessions(sessions, *minimumMetadata)) {
        RemoveMadeFolders(made);
        return kExitFailure;
    }
    // Said only now: a refused ingest takes the folders away again.
    for (const Fnd::WString& folder : made)
        std::cerr << "igd: made the destination folder " << Fnd::ToDisplayUTF8(folder) << "\n";
    const int exitCode = RunTaskService(run, [&](QL::Engine::TaskService&) {
        IGD::StartIngestSessions(sessions, fluxcore::utility::Guid::CreateUnique());
        return kExitSuccess;
    });
    return clipsLeftOut && exitCode == kExitSuccess ? kExitFailure : exitCode;
}

} // namespace

void RegisterIngestCommands(CLI::App& app, CommandTable& table) {
    auto options = std::make_shared<IngestOptions>();
    CLI::App* command = app.add_subcommand(
        "ingest", "copy camera media to one or more destinations, verify it, and import it into the project");
    command
        ->add_option(
            "sources", options->sources,
            "files, folders and camera cards to ingest (a card brings its clips and other media, any other "
            "folder its whole tree)")
        ->required();
    command
        ->add_option("--to", options->destinations,
                     "copy to this folder; repeat for backups (the first is the primary); FOLDER:PRESET "
                     "transcodes there with that encoder preset instead (see `igd encoders`; EXPORTER:PRESET "
                     "where two exporters share the name); without --to the media is imported where it lies")
        ->allow_extra_args(false);
    command
        ->add_option("--subfolder", options->subFolder,
                     "put everything into a folder of this name inside each destination")
        ->check(CLI::Validator(
            [](const std::string& name) { return name.empty() ? std::string("a folder name is needed") : ""; },
            "NAME"));
    command
        ->add_option("--verify", options->verify,
                     "how each copy is checked: by checksum (md5, xxh128, xxh3 or xxh64), size, bit or none; "
                     "by default the checksum the preference IGD.IngestDestinationSettingImpl.Local.VerifyChecksum "
                     "names, md5 unless set")
        ->check(CLI::IsMember(VerifyWords()));
    command->add_option(
        "--rename-preset", options->renamePreset,
        "rename single-file clips and their sidecars by this template (see `igd presets list`); without "
        "it, the stored template when renaming is on in the stored settings");
    command->add_option("--metadata-preset", options->metadataPreset,
                        "write the values of this metadata template into each clip's XMP");
    command->add_option("--panel", options->panelValues,
                        "KEY=VALUE: a field of the site's minimum-metadata panel (keys as the form names them, "
                        "e.g. production, keywords as a comma-separated list, applyToAllDestinations as true or "
                        "false); repeat for more; the rest is asked on a terminal");
    command->add_option("--set", options->values,
                        "KEY=VALUE: the value of the template field with that key; repeat for more");
    command
        ->add_option("--rename-scope", options->renameScope,
                     "rename on all destinations (default) or the primary only")
        ->check(CLI::IsMember({"all", "primary"}));
    command
        ->add_option("--metadata-scope", options->metadataScope,
                     "write metadata on all destinations (default) or the primary only")
        ->check(CLI::IsMember({"all", "primary"}));
    command
        ->add_option("--start-number", options->startNumber,
                     "first number of a custom counter field (default: where the last ingest stopped)")
        ->check(WholeNumberIn(1, std::numeric_limits<std::uint32_t>::max()));
    command->add_option("--project", options->project,
                        "the project to import into (default: " + Proj::DefaultProjectPath() + ")");
    command->add_option("--bin", options->bin, "the bin to import into (default: the root bin)");
    command
        ->add_option(
            "--on-conflict", options->onConflict,
            "what to do with a target that exists: ask (default), skip, keep-both, replace or cancel")
        ->check(CLI::IsMember(ConflictWords()));
    command->add_option("--stitch", options->stitch,
                        "stitch every clip, in order, into one file of this name at the first destination, "
                        "which must transcode");
    command->add_flag("--json", options->json, "report as JSON lines");
    table.Add(command, [options] { return RunIngest(*options); });

    RegisterResumeCommand(app, table);
}

} // namespace igd
