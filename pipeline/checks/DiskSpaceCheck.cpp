#include "pipeline/checks/DiskSpaceCheck.h"

#include "Fnd/DiskUtils.h"
#include "Mid/Utilities.h"
#include "QL/IngestUtils.h"
#include "fluxcore/ZString.h"
#include "fluxui/Messagebox.h"

namespace IGD {
namespace {

using fluxcore::Localize;

enum SpaceAnswer { kRetry, kCancel, kContinue };

SpaceAnswer AskAboutSpace(const Fnd::WString& destination, std::uint64_t missingBytes) {
    const int answer = fluxui::dialogs::messagebox::Messagebox(
        nullptr, Localize("$$$/Quillon/Ingest/Failure/DestinationSpaceNotEnoughTitle=Clip Copy"),
        Localize("$$$/Quillon/Ingest/Failure/DestinationSpaceNotEnoughSuggest=There is not enough space to "
                 "transfer to @0. Please change the destination or release about @1 space.",
                 {destination, Fnd::DiskUtils::MakeDiskSpaceString(missingBytes)}),
        nullptr,
        {Localize("$$$/Quillon/Ingest/CheckTransferDiskSpace/Retry=Retry"),
         Localize("$$$/Quillon/Ingest/CheckTransferDiskSpace/Cancel=Cancel"),
         Localize("$$$/Quillon/Ingest/CheckTransferDiskSpace/Continue=Continue")},
        kCancel, kCancel);
    return static_cast<SpaceAnswer>(answer);
}

} // namespace

bool CheckDiskSpace(const std::vector<Fnd::WString>& sourcePaths,
                    const std::vector<Fnd::WString>& basePaths) {
    return CheckDiskSpace(sourcePaths, basePaths, &QL::IngestUtils::EnoughSpaceForCopy);
}

bool CheckDiskSpace(const std::vector<Fnd::WString>& sourcePaths, const std::vector<Fnd::WString>& basePaths,
                    const SpaceTest& enoughSpace) {
    Fnd::WString failingPath;
    std::uint64_t missingBytes = 0;
    while (!enoughSpace(sourcePaths, basePaths, failingPath, missingBytes)) {
        const Fnd::WString normalized = Mid::Utilities::NormalizePathWithoutUNC(failingPath);
        if (normalized.empty()) {
            fluxui::dialogs::messagebox::Messagebox(
                Localize("$$$/Quillon/Ingest/Failure/DestinationIsEmpty=Destination path is not set"),
                Localize(
                    "$$$/Quillon/Ingest/Failure/DestinationIsEmptySuggest=Please specify the destination "
                    "path."));
            return false;
        }
        switch (AskAboutSpace(normalized, missingBytes)) {
        case kCancel:
            return false;
        case kContinue:
            return true;
        case kRetry:
            break;
        }
    }
    return true;
}

} // namespace IGD
