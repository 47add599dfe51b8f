#include "pipeline/checks/ConcatenateChecks.h"

#include <string_view>

#include "Fnd/PathUtils.h"
#include "QL/RoughCut.h"
#include "fluxcore/FileUtils.h"
#include "fluxcore/ZString.h"
#include "fluxui/Messagebox.h"

namespace IGD {
namespace {

using fluxcore::Localize;

bool Concatenates(const IngestDestination& destination) {
    const auto setting = destination.GetTranscodeSetting();
    return setting && setting->enabled && setting->concatenate;
}

bool RefuseName(QL::IngestTask::TranscodeSetting& setting, std::string_view title, std::string_view text,
                std::initializer_list<Fnd::WString> arguments = {}) {
    fluxui::dialogs::messagebox::Messagebox(Localize(title), Localize(text, arguments));
    setting.nameErrorCallback(true);
    return false;
}

} // namespace

bool AnyDestinationConcatenates(const DestinationList& destinations) {
    for (const IngestDestinationRef& destination : destinations)
        if (Concatenates(*destination))
            return true;
    return false;
}

bool CheckConcatenateNames(const DestinationList& destinations) {
    for (const IngestDestinationRef& destination : destinations) {
        if (!Concatenates(*destination))
            continue;
        QL::IngestTask::TranscodeSetting& setting = *destination->GetTranscodeSetting();
        Fnd::WString name = setting.concatenateName;
        if (name.empty())
            return RefuseName(
                setting, "$$$/Quillon/Ingest/Failure/ConcatenateNameEmptyTitle=Invalid File Name",
                "$$$/Quillon/Ingest/Failure/StitchNameEmptySuggest=Please specify a file name for "
                "the new stitched clip.");
        if (fluxcore::utility::FileUtils::ReplaceIllegalFileNameCharacters(name, u'-'))
            return RefuseName(
                setting, "$$$/Quillon/Ingest/Failure/ConcatenateNameInvalidTitle=Invalid File Name",
                "$$$/Quillon/Ingest/Failure/ConcatenateNameInvalidSuggest=@0^nThe file name is not "
                "valid.",
                {setting.concatenateName});
    }
    return true;
}

bool CheckConcatenateSelection(const std::vector<Fnd::WString>& sourcePaths) {
    std::string_view refusal;
    for (const Fnd::WString& path : sourcePaths) {
        if (!Fnd::PathUtils::IsValidPath(path)) {
            fluxui::dialogs::messagebox::Messagebox(
                Localize("$$$/Quillon/Ingest/Failure/InvalidConcatenatePathTitle=Invalid file path"),
                Localize("$$$/Quillon/Ingest/Failure/InvalidConcatenatePathError=Invalid path exists in the "
                         "selection."));
            return false;
        }
        if (Fnd::PathUtils::IsDirectory(path)) {
            refusal = "$$$/Quillon/Ingest/Failure/NotSupportConcatenateFolder=Concatenating folders is not "
                      "supported. Please uncheck the folders and try again.";
            break;
        }
        if (QL::IsRoughCutFileExtension(path)) {
            refusal = "$$$/Quillon/Ingest/Failure/NotSupportConcatenateRC=Concatenating rough cuts is not "
                      "supported. Please uncheck the rough cut files and try again.";
            break;
        }
    }
    if (refusal.empty())
        return true;
    fluxui::dialogs::messagebox::Messagebox(
        Localize("$$$/Quillon/Ingest/Failure/SelectionNotSupportedTitle=Invalid Selection"),
        Localize(refusal));
    return false;
}

} // namespace IGD
