#pragma once
#include "QL/IngestItem.h"

namespace QL::IngestTask {

struct ImportSetting {
    IngestItemMap importItems; // keyed by path
};

} // namespace QL::IngestTask
