#pragma once
#include <vector>

#include "Fnd/WString.h"

namespace QL {

// The request of a host's direct ingest call.
struct IngestMediaGroup {
    std::vector<Fnd::WString> paths; // the first absolute, the rest relative to its folder
    Fnd::WString transferMode;       // "Copy" asks for a transfer; anything else imports only
    Fnd::WString destinationPath;
    Fnd::WString verify;       // "Verify" asks for verification
    Fnd::WString verifyMethod; // "FileSize" or "BitByBit"; anything else is MD5
};

} // namespace QL
