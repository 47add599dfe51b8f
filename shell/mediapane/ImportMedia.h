#pragma once
#include <string_view>

#include "Fnd/Message.h"

namespace IGD {

// The person pressed Ingest: the dialog's handler checks and runs the ingest.
class ImportMedia : public Fnd::MessageT<ImportMedia> {
public:
    static constexpr std::string_view kTypeName = "IGD::ImportMedia";
};

} // namespace IGD
