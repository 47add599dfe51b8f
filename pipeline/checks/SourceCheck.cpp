#include "pipeline/checks/SourceCheck.h"

#include "QL/IngestUtils.h"
#include "pipeline/checks/PathListCheck.h"

namespace IGD {

bool CheckSourcesExist(const std::vector<Fnd::WString>& sourcePaths) {
    static constexpr PathListCheckTexts kTexts{
        "$$$/Quillon/Ingest/Failure/SourceIsNotExistTitle=Selected path does not exist",
        "$$$/Quillon/Ingest/Failure/SourceIsNotExistSuggest=The selected path @0 does not exist. Please "
        "select "
        "the source clip again.",
        "$$$/Quillon/Ingest/Failure/SourceIsNotExistTitle=Selected path does not exist",
        "$$$/Quillon/Ingest/Failure/SourcePathEmpty=The source clip path is empty. It might be because the "
        "selected file path is too long.",
    };
    return CheckPathList(&QL::IngestUtils::PathsExist, sourcePaths, kTexts);
}

} // namespace IGD
