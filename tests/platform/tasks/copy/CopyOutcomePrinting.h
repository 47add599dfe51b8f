#pragma once
// Readable outcomes in test failures.
#include <ostream>

#include "QL/Engine/FileCopier.h"

namespace QL::Engine {

inline void PrintTo(CopyStatus status, std::ostream* out) {
    static const char* const kNames[] = {"Copied", "Skipped", "Failed", "Cancelled"};
    *out << kNames[static_cast<int>(status)];
}

inline void PrintTo(VerifiedBy by, std::ostream* out) {
    static const char* const kNames[] = {"NotVerified", "Size", "DirectRead", "DroppedCache"};
    *out << kNames[static_cast<int>(by)];
}

inline void PrintTo(const CopyOutcome& outcome, std::ostream* out) {
    PrintTo(outcome.status, out);
    *out << " \"" << outcome.finalPath << "\" reason \"" << outcome.reason << "\"";
}

} // namespace QL::Engine
