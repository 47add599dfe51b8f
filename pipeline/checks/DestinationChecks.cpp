#include "pipeline/checks/DestinationChecks.h"

#include "QL/IngestUtils.h"
#include "pipeline/checks/PathListCheck.h"

namespace IGD {
namespace {

constexpr std::string_view kEmptyDestinationTitle =
    "$$$/Quillon/Ingest/Failure/DestinationIsEmpty=Destination path is not set";
constexpr std::string_view kEmptyDestinationText =
    "$$$/Quillon/Ingest/Failure/DestinationIsEmptySuggest=Please specify the destination path.";

} // namespace

bool CheckDestinationsExist(const std::vector<Fnd::WString>& basePaths) {
    static constexpr PathListCheckTexts kTexts{
        "$$$/Quillon/Ingest/Failure/DestinationIsNotExistTitle=Destination path does not exist",
        "$$$/Quillon/Ingest/Failure/DestinationIsNotExistSuggest=The specified destination path @0 does not "
        "exist. Please specify a new one.",
        kEmptyDestinationTitle,
        kEmptyDestinationText,
    };
    return CheckPathList(&QL::IngestUtils::PathsExist, basePaths, kTexts);
}

bool CheckDestinationsWritable(const std::vector<Fnd::WString>& basePaths) {
    static constexpr PathListCheckTexts kTexts{
        "$$$/Quillon/Ingest/Failure/DestinationIsNotWritableTitle=Destination path is not writable",
        "$$$/Quillon/Ingest/Failure/DestinationIsNotWritableSuggest=The specified destination path @0 is not "
        "writable. Please specify a new one.",
        kEmptyDestinationTitle,
        kEmptyDestinationText,
    };
    return CheckPathList(&QL::IngestUtils::PathsAreWritable, basePaths, kTexts);
}

bool CheckNoDuplicateTargets(const std::vector<Fnd::WString>& copyTargets) {
    static constexpr PathListCheckTexts kTexts{
        "$$$/Quillon/Ingest/Failure/DestinationDuplicatedTitle=Duplicate destination paths",
        "$$$/Quillon/Ingest/Failure/DestinationDuplicatedSuggest=Multiple destination paths point are the "
        "same: '@0'. Please change or remove one of them.",
        kEmptyDestinationTitle,
        kEmptyDestinationText,
    };
    return CheckPathList(&QL::IngestUtils::NoDuplicatedPaths, copyTargets, kTexts);
}

} // namespace IGD
