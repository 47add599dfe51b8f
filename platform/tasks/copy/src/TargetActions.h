#pragma once
#include <cstdint>

#include "QL/Engine/FileCopier.h"

namespace QL::Engine {

// Throws std::invalid_argument for a target whose action is no copy action or whose path names
// no file: faults of the caller.
void RequireValidTarget(const CopyTarget& target);

// Settles a target that needs no data: skip, and "nothing exists" meeting something that does.
// True when outcome is final.
bool SettleWithoutData(const CopyTarget& target, CopyOutcome& outcome);

} // namespace QL::Engine
