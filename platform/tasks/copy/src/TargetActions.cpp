#include "TargetActions.h"

#include <sys/stat.h>

#include <stdexcept>
#include <string>

#include "QL/CopySetting.h"

namespace QL::Engine {

void RequireValidTarget(const CopyTarget& target) {
    if (target.action < kCopyActionNone || target.action > kCopyActionReplace)
        throw std::invalid_argument("not a copy action: " + std::to_string(target.action));
    if (target.path.empty() || target.path.back() == '/')
        throw std::invalid_argument("not a target path: \"" + target.path + "\"");
}

bool SettleWithoutData(const CopyTarget& target, CopyOutcome& outcome) {
    if (target.action == kCopyActionSkip) {
        // Also when nothing is there yet: skip may mean another copy of the batch creates it.
        outcome.status = CopyStatus::Skipped;
        outcome.finalPath = target.path;
        return true;
    }
    struct stat existing;
    if (target.action == kCopyActionNone && ::lstat(target.path.c_str(), &existing) == 0) {
        outcome.status = CopyStatus::Failed;
        outcome.reason = "target exists";
        return true;
    }
    return false;
}

} // namespace QL::Engine
