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
    // "FileSize", "BitByBit", or a checksum: "MD5", "xxh128", "xxh3", "xxh64" in any case; any
    // other text is the checksum the user's preferences name (MD5 unless set).
    Fnd::WString verifyMethod;
};

} // namespace QL
