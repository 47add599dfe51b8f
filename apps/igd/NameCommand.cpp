#include "NameCommand.h"

#include <iostream>
#include <memory>
#include <string>

#include "CommandLinePaths.h"
#include "ExitCodes.h"
#include "IGD/IngestApi.h"
#include "PresetLookup.h"
#include "IGD/IngestSequence.h"

namespace igd {
namespace {

struct NameOptions {
    std::string file;
    std::string renamePreset;
};

int RunName(const NameOptions& options) {
    // The stored settings give the custom counter's start number and, without a named preset,
    // the template the dialog would use.
    const IGD::PresetRef stored = IGD::StoredRenameTemplate();
    const IGD::IngestDialogDataRef session = IGD::IngestDialogDataRef::Query(IGD::CreateIngestDialogData());
    if (!options.renamePreset.empty()) {
        IGD::PresetRef preset = FindPreset(QL::kQLPresetCategoryRename, Fnd::FromUTF8(options.renamePreset));
        if (!preset) {
            std::cerr << "igd: no rename preset is named \"" << options.renamePreset << "\"\n";
            return kExitBadInput;
        }
        session->SetRenameEnabled(true);
        session->SetRenamePreset(preset);
    } else if (stored) {
        session->SetRenameEnabled(true);
        session->SetRenamePreset(stored);
    }

    const Fnd::WString path = AbsolutePath(options.file);
    std::cout << Fnd::ToDisplayUTF8(IGD::GetIngestFileOutputName(path, session, Fnd::Date::Now(), false)) << "\n";
    return kExitSuccess;
}

} // namespace

void RegisterNameCommand(CLI::App& app, CommandTable& table) {
    auto options = std::make_shared<NameOptions>();
    CLI::App* command = app.add_subcommand("name", "print the name an ingest would give the file");
    command->add_option("file", options->file, "the file to name")->required();
    command->add_option("--rename-preset", options->renamePreset,
                        "rename template to use (without it: the stored one, if renaming is on)");
    table.Add(command, [options] { return RunName(*options); });
}

} // namespace igd
